#include "portfolio/Export.h"

#include "core/database/Transaction.h"
#include "core/lookups/Directory.h"
#include "core/text/Dates.h"
#include "portfolio/ExportedNames.h"
#include "portfolio/Portfolio.h"

#include <algorithm>
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
    WriteTransfers();
    WriteBrokerOpenings();
    WritePayments(FileKind::kPayments, records::Table<records::Payment>::kName, kPaymentModes);
    WritePayments(FileKind::kReceipts, records::kReceipts, kReceiptModes);
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
