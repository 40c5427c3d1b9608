#include "core/rates/IsinBook.h"
#include "core/records/Rates.h"
#include "core/tax/FairValues.h"
#include "portfolio/ExportedNames.h"
#include "portfolio/Portfolio.h"

#include <map>
#include <tuple>

namespace quorvane::portfolio {
namespace {

using database::Connection;

class MasterExport {
 public:
  MasterExport(Connection& connection, OutputFolder& folder, const ExportedNames& names)
      : connection_(connection), folder_(folder), names_(names) {}

  void Write() {
    WriteRates();
    WriteAccounts();
    WriteClients();
    WriteParticipants();
    WriteBrokers();
    WriteScrips();
    WriteIsins();
    WriteFairValues();
    WritePercentages();
  }

 private:
  /// Day by day as the server gives them, for there may be very many.
  void WriteRates() {
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kRates));
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
          if (!names_.IsWanted(names_.scrips, rate.scrip)) {
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
    for (const records::DpId& dp_id : AllOf<records::DpId>(connection_)) {
      dp_ids.try_emplace({dp_id.participant, dp_id.id}, dp_id.number);
    }
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kAccounts));
    InOrder(
        names_.OfKnownClients<records::Account>(connection_),
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
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kClients));
    InOrder(
        names_.Select(connection_, &records::Client::id).All(),
        [](const records::Client& c) { return c.code.toStdString(); },
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
    for (const records::DpId& dp_id : AllOf<records::DpId>(connection_)) {
      dp_ids.emplace(dp_id.participant, dp_id.number);
    }
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kParticipants));
    const auto row = [&](const records::Participant& p, const QString& dp_id) {
      file.Row(p.name, WordOf(kDepositories, p.depository), dp_id, p.address, p.city, p.state,
               p.pin, p.std_code, p.phone, p.mobile, p.fax, p.email, p.person, p.designation);
    };
    InOrder(
        AllOf<records::Participant>(connection_),
        [](const records::Participant& p) { return p.name.toStdString(); },
        [&](const records::Participant& p) {
          if (!names_.IsWanted(names_.participants, p.id)) {
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
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kBrokers));
    InOrder(
        AllOf<records::Broker>(connection_),
        [](const records::Broker& b) { return b.name.toStdString(); },
        [&](const records::Broker& b) {
          if (names_.IsWanted(names_.brokers, b.id)) {
            file.Row(b.name, b.address, b.city, b.state, b.pin, b.std_code, b.phone, b.mobile,
                     b.fax, b.email);
          }
        });
    file.Finish();
  }

  template <class Record>
  std::map<int, QString> NamesOf() {
    std::map<int, QString> names;
    for (const Record& record : AllOf<Record>(connection_)) {
      names.try_emplace(record.id, record.name);
    }
    return names;
  }

  void WriteScrips() {
    std::map<int, QString> types = NamesOf<records::ScripType>();
    std::map<int, QString> classes = NamesOf<records::ScripClass>();
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kScrips));
    InOrder(
        AllOf<records::Scrip>(connection_),
        [](const records::Scrip& s) { return s.code.toStdString(); },
        [&](const records::Scrip& s) {
          if (names_.IsWanted(names_.scrips, s.id)) {
            file.Row(s.code, s.second_code, s.name, types[s.type], classes[s.scrip_class]);
          }
        });
    file.Finish();
  }

  void WriteIsins() {
    std::map<std::string, std::vector<quorvane::rates::DatedIsin>> by_code;
    for (auto& [scrip, isins] : quorvane::rates::AllIsins(connection_)) {
      if (names_.IsWanted(names_.scrips, scrip)) {
        by_code.emplace(names_.scrips.Use(scrip), std::move(isins));
      }
    }
    if (by_code.empty()) {
      return folder_.Remove(LayoutOf(FileKind::kIsins));
    }
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kIsins));
    for (const auto& [code, isins] : by_code) {
      for (const quorvane::rates::DatedIsin& isin : isins) {
        file.Row(code, isin.isin, isin.from_day);
      }
    }
    file.Finish();
  }

  void WriteFairValues() {
    std::map<std::string, double> by_code;
    for (const auto& [scrip, rate] : tax::ReadFairValues(connection_)) {
      if (names_.IsWanted(names_.scrips, scrip)) {
        by_code.emplace(names_.scrips.Use(scrip), rate);
      }
    }
    if (by_code.empty()) {
      return folder_.Remove(LayoutOf(FileKind::kFairValues));
    }
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kFairValues));
    for (const auto& [code, rate] : by_code) {
      file.Row(code, rate);
    }
    file.Finish();
  }

  void WritePercentages() {
    OutputFile& file = folder_.Add(LayoutOf(FileKind::kPercentages));
    InOrder(
        AllOf<records::Percentage>(connection_),
        [](const records::Percentage& p) { return std::pair(p.year, p.name.toStdString()); },
        [&](const records::Percentage& p) { file.Row(p.year, p.name, p.percent, p.as_on); });
    file.Finish();
  }

  Connection& connection_;
  OutputFolder& folder_;
  const ExportedNames& names_;
};

}  // namespace

void ExportMasters(Connection& connection, OutputFolder& folder, const ExportedNames& names) {
  MasterExport(connection, folder, names).Write();
}

}  // namespace quorvane::portfolio
