#include "portfolio/Export.h"

#include "core/actions/Terms.h"
#include "core/database/Transaction.h"
#include "core/lookups/Directory.h"
#include "core/records/Dividend.h"
#include "core/text/Dates.h"
#include "portfolio/ExportedNames.h"
#include "portfolio/Portfolio.h"
#include "portfolio/reconcile/OpeningMarks.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace quorvane::portfolio {
namespace {

using database::Connection;

// Names are sorted by their bytes: the same on every server and in every tool that sorts text.

/// Writes the documents that are no bills.
class DocumentExport {
 public:
  DocumentExport(Connection& connection, OutputFolder& folder, const ExportedNames& names)
      : connection_(connection), folder_(folder), names_(names) {}

  void Write() {
    WriteOpenings();
    WriteOpeningMarks();
    WriteTransfers();
    WriteBrokerOpenings();
    WritePayments(FileKind::kPayments, records::Table<records::Payment>::kName, kPaymentModes);
    WritePayments(FileKind::kReceipts, records::kReceipts, kReceiptModes);
    WriteActions();
    WriteTaxLosses();
    WriteStatementChecks();
  }

 private:
  void WriteOpenings() {
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kOpening));
    InOrder(
        names_.OfKnownClients<records::Opening>(connection_),
        [this](const records::Opening& o) {
          return std::tuple(names_.clients.Use(o.client), names_.accounts.Use(o.account), o.year,
                            names_.scrips.Use(o.scrip), text::ParseDmy(o.purchase_date));
        },
        [&](const records::Opening& o) {
          file.Row(names_.clients.Use(o.client), names_.accounts.Use(o.account), o.year,
                   names_.scrips.Use(o.scrip), o.quantity, o.rate, o.purchase_date, o.service_tax,
                   o.brokerage, o.stt, o.fo);
        });
    file.Finish();
  }

  /// The opening stock whose cost is still to be entered.
  void WriteOpeningMarks() {
    std::vector<reconcile::OpeningMark> marks = reconcile::OpenMarks(connection_, std::nullopt);
    std::erase_if(marks, [this](const reconcile::OpeningMark& mark) {
      return !names_.clients.Has(mark.client) || !names_.scrips.Has(mark.scrip) ||
             !(names_.wanted_clients.empty() || names_.wanted_clients.contains(mark.client));
    });
    if (marks.empty()) {
      return folder_.Remove(LayoutOf(FileKind::kOpeningMarks));
    }
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kOpeningMarks));
    InOrder(
        marks,
        [this](const reconcile::OpeningMark& mark) {
          return std::tuple(names_.clients.Use(mark.client), names_.accounts.Use(mark.account),
                            mark.year, names_.scrips.Use(mark.scrip));
        },
        [&](const reconcile::OpeningMark& mark) {
          file.Row(names_.clients.Use(mark.client), names_.accounts.Use(mark.account), mark.year,
                   names_.scrips.Use(mark.scrip));
        });
    file.Finish();
  }

  void WriteStatementChecks() {
    using records::StatementCheck;
    std::vector<StatementCheck> checks =
        names_.Select(connection_, &StatementCheck::client, records::Table<StatementCheck>::kName)
            .All();
    std::erase_if(checks, [this](const StatementCheck& check) {
      return !names_.clients.Has(check.client) || !names_.accounts.Has(check.account);
    });
    if (checks.empty()) {
      return folder_.Remove(LayoutOf(FileKind::kStatementChecks));
    }
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kStatementChecks));
    InOrder(
        checks,
        [this](const StatementCheck& check) {
          return std::tuple(names_.clients.Use(check.client), names_.accounts.Use(check.account),
                            text::ParseDmy(check.statement_day));
        },
        [&](const StatementCheck& check) {
          file.Row(names_.clients.Use(check.client), names_.accounts.Use(check.account),
                   check.statement_day, std::to_string(check.compared),
                   std::to_string(check.differing), check.checked_on);
        });
    file.Finish();
  }

  /// The numbers that more than one account has, folded.
  std::set<std::string> SharedNumbers() {
    std::set<std::string> seen;
    std::set<std::string> shared;
    for (const records::Account& account : AllOf<records::Account>(connection_)) {
      std::string number = lookups::Folded(account.number.toStdString());
      if (!seen.insert(number).second) {
        shared.insert(std::move(number));
      }
    }
    return shared;
  }

  void WriteTransfers() {
    const std::vector<records::Transfer> moved =
        names_.OfKnownClients<records::Transfer>(connection_);
    const std::set<std::string> shared = SharedNumbers();
    const auto is_shared = [&](AccountId account) {
      return shared.contains(lookups::Folded(names_.accounts.Use(account)));
    };
    const bool with_clients = std::ranges::any_of(
        moved, [&](const records::Transfer& t) { return is_shared(t.from) || is_shared(t.to); });
    FileLayout layout = LayoutOf(FileKind::kTransfers);
    if (!with_clients) {
      layout.columns = layout.columns.first(transfers::kFromClient);
    }
    OutputFile& file = folder_.Add(layout);
    InOrder(
        moved, [](const records::Transfer& t) { return text::ParseDmy(t.date); },
        [&](const records::Transfer& t) {
          const auto row = [&](const auto&... clients) {
            file.Row(t.date, names_.accounts.Use(t.from), names_.accounts.Use(t.to),
                     names_.scrips.Use(t.scrip), t.rate, t.quantity, clients...);
          };
          with_clients ? row(names_.clients.Use(t.client), names_.clients.Use(t.to_client)) : row();
        });
    file.Finish();
  }

  void WriteBrokerOpenings() {
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kBrokerOpening));
    InOrder(
        names_.OfKnownClients<records::BrokerOpening>(connection_),
        [this](const records::BrokerOpening& o) {
          return std::tuple(names_.clients.Use(o.client), o.year, names_.brokers.Use(o.broker));
        },
        [&](const records::BrokerOpening& o) {
          file.Row(names_.clients.Use(o.client), o.year, names_.brokers.Use(o.broker), o.amount,
                   WordOf(kDebitCredit, o.side));
        });
    file.Finish();
  }

  void WritePayments(FileKind kind, std::string_view table,
                     std::span<const std::string_view> modes) {
    OutputFile& file = folder_.Add(LayoutOf(kind));
    InOrder(
        names_.OfKnownClients<records::Payment>(connection_, table),
        [this](const records::Payment& p) {
          return std::tuple(names_.clients.Use(p.client), text::ParseDmy(p.date),
                            names_.brokers.Use(p.broker));
        },
        [&](const records::Payment& p) {
          file.Row(names_.clients.Use(p.client), names_.brokers.Use(p.broker),
                   WordOf(modes, p.mode), p.amount, p.date, WordOf(kPaymentKinds, p.payment_mode),
                   p.cheque_number, p.cheque_date, p.drawn_on, p.remark);
        });
    file.Finish();
  }

  /// Of one client's export those that changed the client's holdings or paid a dividend.
  std::vector<records::Action> WantedActions(const std::vector<records::ActionLot>& lots,
                                             const std::vector<records::Dividend>& dividends) {
    std::vector<records::Action> actions = AllOf<records::Action>(connection_);
    std::set<ActionId> touched;
    for (const records::ActionLot& lot : lots) {
      touched.insert(lot.action);
    }
    for (const records::Dividend& dividend : dividends) {
      touched.insert(dividend.action);
    }
    std::erase_if(actions, [&](const records::Action& action) {
      const bool wanted = names_.wanted_clients.empty() || touched.contains(action.id);
      return !wanted || !names_.scrips.Has(action.scrip);
    });
    return actions;
  }

  void WriteActions() {
    std::vector<records::ActionLot> lots = names_.Select(connection_, &records::ActionLot::client)
                                               .OrderBy(&records::ActionLot::action)
                                               .OrderBy(&records::ActionLot::number)
                                               .All();
    std::erase_if(lots, [this](const auto& lot) { return !names_.clients.Has(lot.client); });
    const std::vector<records::Dividend> dividends =
        names_.OfKnownClients<records::Dividend>(connection_);
    const std::vector<records::Action> actions = WantedActions(lots, dividends);
    if (actions.empty()) {
      folder_.Remove(LayoutOf(FileKind::kActions));
      folder_.Remove(LayoutOf(FileKind::kActionLots));
      WriteDividends(dividends, {});
      return;
    }
    std::map<ActionId, std::size_t> places;
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kActions));
    InOrder(
        actions,
        [this](const records::Action& action) {
          return std::tuple(text::ParseDmy(action.ex_day), action.id,
                            names_.scrips.Use(action.scrip));
        },
        [&](const records::Action& action) {
          places.emplace(action.id, places.size() + 1);
          file.Row(names_.scrips.Use(action.scrip), actions::NameOf(action.kind).file_name,
                   action.ex_day, action.record_day, Given(action.new_shares),
                   Given(action.old_shares), names_.scrips.Use(action.other), action.price,
                   action.cost_percent, action.note, action.allotment_day, action.applied);
        });
    file.Finish();
    WriteActionLots(lots, places);
    WriteDividends(dividends, places);
  }

  /// Empty for a ratio that an action does not have.
  static std::string Given(text::Shares shares) {
    std::string out;
    if (shares) {
      AppendField(out, shares);
    }
    return out;
  }

  void WriteActionLots(const std::vector<records::ActionLot>& lots,
                       const std::map<ActionId, std::size_t>& places) {
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kActionLots));
    InOrder(
        lots,
        [&](const records::ActionLot& lot) {
          const auto place = places.find(lot.action);
          return std::pair(place == places.end() ? 0 : place->second, lot.number);
        },
        [&](const records::ActionLot& lot) {
          if (const auto place = places.find(lot.action); place != places.end()) {
            file.Row(std::to_string(place->second), names_.clients.Use(lot.client),
                     names_.accounts.Use(lot.account), names_.scrips.Use(lot.scrip), lot.rate,
                     lot.out, names_.scrips.Use(lot.to_scrip), lot.to_rate, lot.in, lot.acquired,
                     lot.brokerage, lot.service_tax, lot.stt);
          }
        });
    file.Finish();
  }

  void WriteDividends(const std::vector<records::Dividend>& dividends,
                      const std::map<ActionId, std::size_t>& places) {
    if (dividends.empty()) {
      return folder_.Remove(LayoutOf(FileKind::kDividends));
    }
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kDividends));
    InOrder(
        dividends,
        [this](const records::Dividend& d) {
          return std::tuple(names_.clients.Use(d.client), text::ParseDmy(d.date),
                            names_.accounts.Use(d.account), names_.scrips.Use(d.scrip));
        },
        [&](const records::Dividend& d) {
          const auto place = places.find(d.action);
          file.Row(names_.clients.Use(d.client), names_.accounts.Use(d.account),
                   names_.scrips.Use(d.scrip), d.date, d.quantity, d.per_share, d.tax_deducted,
                   place == places.end() ? std::string() : std::to_string(place->second));
        });
    file.Finish();
  }

  void WriteTaxLosses() {
    std::vector<tax::TaxLoss> losses = tax::ReadAllTaxLosses(connection_);
    std::erase_if(losses, [this](const tax::TaxLoss& loss) {
      return !names_.clients.Has(loss.client) ||
             !(names_.wanted_clients.empty() || names_.wanted_clients.contains(loss.client));
    });
    if (losses.empty()) {
      return folder_.Remove(LayoutOf(FileKind::kTaxLosses));
    }
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kTaxLosses));
    InOrder(
        losses, [this](const tax::TaxLoss& loss) { return names_.clients.Use(loss.client); },
        [&](const tax::TaxLoss& loss) {
          file.Row(names_.clients.Use(loss.client), loss.year, tax::NameOf(loss.kind).file_name,
                   loss.amount.Rupees(), loss.loss_year);
        });
    file.Finish();
  }

  Connection& connection_;
  OutputFolder& folder_;
  const ExportedNames& names_;
};

}  // namespace

void ExportPortfolio(Connection& connection, const QString& folder, std::optional<ClientId> client,
                     Progress& progress) {
  OutputFolder files(folder);
  {
    // Never committed: it only holds every query to one instant.
    const database::Transaction instant(connection);
    const ExportedNames names(connection, client);
    DocumentExport(connection, files, names).Write();
    ExportBills(connection, files, names, progress);
    ExportMasters(connection, files, names);
  }
  files.Publish();
}

}  // namespace quorvane::portfolio
