#include "portfolio/Export.h"

#include "core/database/Transaction.h"
#include "core/text/Dates.h"
#include "portfolio/ExportBills.h"
#include "portfolio/ExportedNames.h"
#include "portfolio/OutputRow.h"
#include "portfolio/Portfolio.h"

#include <map>
#include <tuple>

namespace quorvane::portfolio {
namespace {

using database::Connection;

// Names are sorted by their bytes: the same on every server and in every tool that sorts text.

/// Writes every file but the bills. A master comes after the documents that need it.
class TableExport {
 public:
  TableExport(Connection& connection, OutputFolder& folder, const ExportedNames& names)
      : connection_(connection), folder_(folder), names_(names) {}

  void WriteDocuments() {
    WriteOpenings();
    WriteTransfers();
    WriteBrokerOpenings();
    WritePayments(FileKind::kPayments, records::Table<records::Payment>::kName, kPaymentModes);
    WritePayments(FileKind::kReceipts, records::kReceipts, kReceiptModes);
  }

  void WriteMasters() {
    WriteRates();
    WriteAccounts();
    WriteClients();
    WriteParticipants();
    WriteBrokers();
    WriteScrips();
    WritePercentages();
  }

 private:
  class File {
   public:
    File(OutputFolder& folder, FileKind kind) : file_(folder.Add(LayoutOf(kind))) {}

    template <class... Fields>
    void Row(const Fields&... fields) {
      AppendFields(file_.Buffer(), fields...);
      file_.Buffer() += '\n';
      file_.WriteWhenLarge();
    }
    void Finish() { file_.Finish(); }

   private:
    OutputFile& file_;
  };

  template <class Record>
  std::vector<Record> All(ClientId Record::*client,
                          std::string_view table = records::Table<Record>::kName) {
    return names_.Select(connection_, client, table).OrderBy(&Record::id).All();
  }
  template <class Record>
  std::vector<Record> All() {
    return records::Select<Record>(connection_).OrderBy(&Record::id).All();
  }

  /// A document of a client who is not there cannot be taken in again.
  template <class Record>
  std::vector<Record> OfKnownClients(std::string_view table = records::Table<Record>::kName) {
    std::vector<Record> records = All(&Record::client, table);
    std::erase_if(records, [this](const Record& r) { return !names_.clients.Has(r.client); });
    return records;
  }

  void WriteOpenings() {
    File file(folder_, FileKind::kOpening);
    InOrder(
        OfKnownClients<records::Opening>(),
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

  void WriteTransfers() {
    File file(folder_, FileKind::kTransfers);
    InOrder(
        All(&records::Transfer::client),
        [](const records::Transfer& t) { return text::ParseDmy(t.date); },
        [&](const records::Transfer& t) {
          file.Row(t.date, names_.accounts.Use(t.from), names_.accounts.Use(t.to),
                   names_.scrips.Use(t.scrip), t.rate, t.quantity);
        });
    file.Finish();
  }

  void WriteBrokerOpenings() {
    File file(folder_, FileKind::kBrokerOpening);
    InOrder(
        OfKnownClients<records::BrokerOpening>(),
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
    File file(folder_, kind);
    InOrder(
        OfKnownClients<records::Payment>(table),
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

  template <class Id>
  bool IsWanted(const NameList<Id>& names, Id id) const {
    return names_.IsWhole() ? names.Has(id) : names.IsUsed(id);
  }

  /// Day by day as the server gives them, for there may be very many.
  void WriteRates() {
    File file(folder_, FileKind::kRates);
    std::vector<records::MarketRate> day;
    const auto write_day = [&] {
      InOrder(
          day, [this](const records::MarketRate& r) { return names_.scrips.Use(r.scrip); },
          [&](const records::MarketRate& r) {
            file.Row(r.date, names_.scrips.Use(r.scrip), r.rate);
          });
      day.clear();
    };
    records::Select<records::MarketRate>(connection_)
        .OrderByDay(&records::MarketRate::date)
        .OrderBy(&records::MarketRate::id)
        .Each([&](const records::MarketRate& rate) {
          if (!IsWanted(names_.scrips, rate.scrip)) {
            return;
          }
          if (!day.empty() && day.back().date != rate.date) {
            write_day();
          }
          day.push_back(rate);
        });
    write_day();
    file.Finish();
  }

  void WriteAccounts() {
    std::map<std::pair<ParticipantId, DpIdId>, QString> dp_ids;
    for (const records::DpId& dp_id : All<records::DpId>()) {
      dp_ids.try_emplace({dp_id.participant, dp_id.id}, dp_id.number);
    }
    File file(folder_, FileKind::kAccounts);
    InOrder(
        OfKnownClients<records::Account>(),
        [this](const records::Account& a) {
          return std::tuple(names_.clients.Use(a.client), names_.accounts.Use(a.id));
        },
        [&](const records::Account& a) {
          file.Row(names_.clients.Use(a.client), names_.participants.Use(a.participant),
                   dp_ids[{a.participant, a.dp_id}], a.number);
        });
    file.Finish();
  }

  void WriteClients() {
    File file(folder_, FileKind::kClients);
    InOrder(
        All(&records::Client::id), [](const records::Client& c) { return c.code.toStdString(); },
        [&](const records::Client& c) {
          file.Row(c.code, c.group_code, c.name, c.address, c.city, c.state, c.pin, c.std_code,
                   c.phone, c.mobile, c.fax, c.email, c.date_of_birth, c.pan, WordOf(kSexes, c.sex),
                   WordOf(kMaritalStatuses, c.marital_status));
        });
    file.Finish();
  }

  /// A row for each DP id.
  void WriteParticipants() {
    std::multimap<ParticipantId, QString> dp_ids;
    for (const records::DpId& dp_id : All<records::DpId>()) {
      dp_ids.emplace(dp_id.participant, dp_id.number);
    }
    File file(folder_, FileKind::kParticipants);
    const auto row = [&](const records::Participant& p, const QString& dp_id) {
      file.Row(p.name, WordOf(kDepositories, p.depository), dp_id, p.address, p.city, p.state,
               p.pin, p.std_code, p.phone, p.mobile, p.fax, p.email, p.person, p.designation);
    };
    InOrder(
        All<records::Participant>(),
        [](const records::Participant& p) { return p.name.toStdString(); },
        [&](const records::Participant& p) {
          if (!IsWanted(names_.participants, p.id)) {
            return;
          }
          const auto [first, last] = dp_ids.equal_range(p.id);
          if (first == last) {
            row(p, {});
          }
          for (auto dp_id = first; dp_id != last; ++dp_id) {
            row(p, dp_id->second);
          }
        });
    file.Finish();
  }

  void WriteBrokers() {
    File file(folder_, FileKind::kBrokers);
    InOrder(
        All<records::Broker>(), [](const records::Broker& b) { return b.name.toStdString(); },
        [&](const records::Broker& b) {
          if (IsWanted(names_.brokers, b.id)) {
            file.Row(b.name, b.address, b.city, b.state, b.pin, b.std_code, b.phone, b.mobile,
                     b.fax, b.email);
          }
        });
    file.Finish();
  }

  template <class Record>
  std::map<int, QString> NamesOf() {
    std::map<int, QString> names;
    for (const Record& record : All<Record>()) {
      names.try_emplace(record.id, record.name);
    }
    return names;
  }

  void WriteScrips() {
    std::map<int, QString> types = NamesOf<records::ScripType>();
    std::map<int, QString> classes = NamesOf<records::ScripClass>();
    File file(folder_, FileKind::kScrips);
    InOrder(
        All<records::Scrip>(), [](const records::Scrip& s) { return s.code.toStdString(); },
        [&](const records::Scrip& s) {
          if (IsWanted(names_.scrips, s.id)) {
            file.Row(s.code, s.second_code, s.name, types[s.type], classes[s.scrip_class]);
          }
        });
    file.Finish();
  }

  void WritePercentages() {
    File file(folder_, FileKind::kPercentages);
    InOrder(
        All<records::Percentage>(),
        [](const records::Percentage& p) { return std::pair(p.year, p.name.toStdString()); },
        [&](const records::Percentage& p) { file.Row(p.year, p.name, p.percent, p.as_on); });
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
    TableExport tables(connection, files, names);
    tables.WriteDocuments();
    ExportBills(connection, files, names, progress);
    tables.WriteMasters();
  }
  files.Publish();
}

}  // namespace quorvane::portfolio
