#include "core/database/Keys.h"
#include "core/records/Writing.h"
#include "portfolio/ImportSteps.h"
#include "portfolio/RecordedDocuments.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
using records::BrokerOpening;
using records::MarketRate;
using records::Payment;

class MoneyImport {
 public:
  MoneyImport(Transaction& transaction, const Portfolio& portfolio, const ResolvedNames& names,
              ErrorList& errors, ImportResult& result)
      : transaction_(transaction),
        portfolio_(portfolio),
        names_(names),
        errors_(errors),
        result_(result) {}

  void Run() {
    ImportBrokerOpenings();
    ImportPayments(records::Table<Payment>::kName, FileKind::kPayments, portfolio_.payments,
                   QT_TRANSLATE_NOOP("Portfolio", "payments"));
    ImportPayments(records::kReceipts, FileKind::kReceipts, portfolio_.receipts,
                   QT_TRANSLATE_NOOP("Portfolio", "receipts"));
    ImportRates();
    ImportIsins();
  }

 private:
  /// Gives the records of rows their keys, lets `check` look at each, and writes them.
  template <class Record, class Row, class Check>
  void Write(std::string_view table, const std::vector<Row>& rows, const Check& check) {
    records::Writer<Record> writer(transaction_, table);
    int next = database::NextKeys(transaction_, table, static_cast<int>(rows.size()));
    for (const Row& row : rows) {
      Record record = row.record;
      record.client = names_.clients[row.client];
      record.broker = names_.brokers[row.broker];
      check(row, record);
      record.id = next++;
      writer.Write(record);
    }
    writer.Finish();
  }

  void ImportBrokerOpenings() {
    if (portfolio_.broker_openings.empty()) {
      return;
    }
    RecordedDocuments<BrokerOpening> recorded;
    recorded.Read(records::Select<BrokerOpening>(transaction_.GetConnection()));
    Write<BrokerOpening>(records::Table<BrokerOpening>::kName, portfolio_.broker_openings,
                         [&](const BrokerOpeningRow& row, const BrokerOpening& opening) {
                           const bool known = opening.client && opening.broker;
                           if (known && !recorded.Add(opening)) {
                             errors_.Add(FileKind::kBrokerOpening, row.line, "broker",
                                         "Record Already Exists!");
                           }
                         });
    result_.Count(QT_TRANSLATE_NOOP("Portfolio", "broker openings"),
                  portfolio_.broker_openings.size());
  }

  void ImportPayments(std::string_view table, FileKind file, const std::vector<MoneyRow>& rows,
                      std::string_view what) {
    if (rows.empty()) {
      return;
    }
    RecordedDocuments<Payment> recorded;
    recorded.Read(records::Select<Payment>(transaction_.GetConnection(), table));
    Write<Payment>(table, rows, [&](const MoneyRow& row, const Payment& payment) {
      if (recorded.Has(payment)) {
        errors_.Add(file, row.line, "", "this payment is recorded already");
      }
    });
    result_.Count(what, rows.size());
  }

  void ImportRates() {
    if (portfolio_.rates.empty()) {
      return;
    }
    std::map<std::pair<QString, ScripId>, double> known;
    records::Select<MarketRate>(transaction_.GetConnection()).Each([&](const MarketRate& rate) {
      known.try_emplace({rate.date, rate.scrip}, rate.rate);
    });
    records::Writer<MarketRate> writer(transaction_);
    int next = database::FirstFreeKey(transaction_, records::Table<MarketRate>::kName);
    std::size_t added = 0;
    for (const RateRow& row : portfolio_.rates) {
      MarketRate rate = row.record;
      rate.scrip = names_.scrips[row.scrip];
      const auto [entry, fresh] = known.try_emplace({rate.date, rate.scrip}, rate.rate);
      if (fresh) {
        rate.id = next++;
        writer.Write(rate);
        ++added;
      } else if (entry->second != rate.rate && rate.scrip) {
        errors_.Add(FileKind::kRates, row.line, "rate",
                    fmt::format("the scrip has the rate {} on this date already", entry->second));
      }
    }
    writer.Finish();
    database::KeepKeys(transaction_, records::Table<MarketRate>::kName, next);
    result_.Count(QT_TRANSLATE_NOOP("Portfolio", "market rates"), added);
  }

  void ImportIsins() {
    std::map<ScripId, std::vector<quorvane::rates::DatedIsin>> known =
        quorvane::rates::AllIsins(transaction_.GetConnection());
    std::set<ScripId> changed;
    std::size_t added = 0;
    for (const IsinRow& row : portfolio_.isins) {
      const ScripId scrip = names_.scrips[row.scrip];
      std::vector<quorvane::rates::DatedIsin>& isins = known[scrip];
      const auto same = std::ranges::find(isins, row.isin.isin, &quorvane::rates::DatedIsin::isin);
      if (same == isins.end()) {
        isins.push_back(row.isin);
        changed.insert(scrip);
        ++added;
      } else if (same->from_day != row.isin.from_day) {
        errors_.Add(FileKind::kIsins, row.line, "from_date",
                    "the scrip has this ISIN from another day");
      }
    }
    for (const ScripId scrip : changed) {
      quorvane::rates::SetIsins(transaction_, scrip, known[scrip]);
    }
    result_.Count(QT_TRANSLATE_NOOP("Portfolio", "ISINs"), added);
  }

  Transaction& transaction_;
  const Portfolio& portfolio_;
  const ResolvedNames& names_;
  ErrorList& errors_;
  ImportResult& result_;
};

}  // namespace

void ImportMoney(Transaction& transaction, const Portfolio& portfolio, const ResolvedNames& names,
                 ErrorList& errors, ImportResult& result) {
  MoneyImport(transaction, portfolio, names, errors, result).Run();
}

}  // namespace quorvane::portfolio
