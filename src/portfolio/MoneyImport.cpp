#include "portfolio/MoneyImport.h"

#include "core/database/BulkWriter.h"
#include "core/database/Keys.h"

#include <fmt/format.h>

#include <map>
#include <set>
#include <unordered_set>

namespace quorvane::portfolio {
namespace {

using database::BulkWriter;
using database::Transaction;

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
    ImportPayments("BrPayment", FileKind::kPayments, portfolio_.payments, "payments");
    ImportPayments("BrRec", FileKind::kReceipts, portfolio_.receipts, "receipts");
    ImportRates();
  }

 private:
  void Count(std::string_view what, std::size_t added) {
    if (added > 0) {
      result_.counts.push_back({std::string(what), added});
    }
  }

  void Fail(FileKind file, std::size_t line, std::string_view column, std::string message) {
    errors_.Add(LayoutOf(file).name, line, column, std::move(message));
  }

  void ImportBrokerOpenings() {
    if (portfolio_.broker_openings.empty()) {
      return;
    }
    std::set<std::tuple<int, std::string, int>> taken;
    for (const auto& row : transaction_.Open("Select CId,Fyear,BrId From BrOpBal")) {
      taken.emplace(row.Int(std::size_t{0}), std::string(row.Utf8(1)), row.Int(2));
    }
    BulkWriter writer(transaction_, "Insert Into BrOpBal Values(?,?,?,?,?,?)", "itiidi");
    int next = database::NextKeys(transaction_, "BrOpBal",
                                  static_cast<int>(portfolio_.broker_openings.size()));
    for (const BrokerOpeningRow& row : portfolio_.broker_openings) {
      const int client = names_.clients[row.client].value;
      const int broker = names_.brokers[row.broker].value;
      if (client != 0 && broker != 0 && !taken.emplace(client, row.year.Utf8(), broker).second) {
        Fail(FileKind::kBrokerOpening, row.line, "broker", "Record Already Exists!");
      }
      writer.Int(client)
          .Text(row.year.Utf8())
          .Int(next++)
          .Int(broker)
          .Double(row.amount)
          .Int(row.side);
      writer.EndRow();
    }
    writer.Finish();
    Count("broker openings", portfolio_.broker_openings.size());
  }

  void ImportPayments(std::string_view table, FileKind file, const std::vector<MoneyRow>& rows,
                      std::string_view what) {
    if (rows.empty()) {
      return;
    }
    std::unordered_set<std::string> recorded;
    for (const auto& row : transaction_.Open(
             fmt::format("Select Cid,BrId,TMode,Amt,PDate,PMode,ChqNo From {}", table))) {
      recorded.insert(fmt::format("{}|{}|{}|{}|{}|{}|{}", row.Int(std::size_t{0}), row.Int(1),
                                  row.Int(2), row.Double(3), row.Utf8(4), row.Int(5), row.Utf8(6)));
    }
    BulkWriter writer(transaction_,
                      fmt::format("Insert Into {} Values(?,?,?,?,?,?,?,?,?,?,?,?)", table),
                      "itiiidtitttt");
    int next = database::NextKeys(transaction_, table, static_cast<int>(rows.size()));
    for (const MoneyRow& row : rows) {
      const std::string day = text::FormatDmy(row.date).toStdString();
      const int client = names_.clients[row.client].value;
      const int broker = names_.brokers[row.broker].value;
      if (recorded.contains(fmt::format("{}|{}|{}|{}|{}|{}|{}", client, broker, row.mode,
                                        row.amount, day, row.payment_mode, row.cheque_no))) {
        Fail(file, row.line, "", "this payment is recorded already");
      }
      writer.Int(client)
          .Text(text::FinancialYear::Of(row.date).Utf8())
          .Int(next++)
          .Int(broker)
          .Int(row.mode)
          .Double(row.amount)
          .Text(day)
          .Int(row.payment_mode)
          .Text(row.cheque_no)
          .Text(row.cheque_date)
          .Text(row.drawn_on)
          .Text(row.remark)
          .EndRow();
    }
    writer.Finish();
    Count(what, rows.size());
  }

  void ImportRates() {
    if (portfolio_.rates.empty()) {
      return;
    }
    std::map<std::pair<std::string, int>, double> known;
    for (const auto& row : transaction_.Open("Select MDate,ScrId,Rate From MarketRate")) {
      known.try_emplace({std::string(row.Utf8(0)), row.Int(1)}, row.Double(2));
    }
    BulkWriter writer(transaction_, "Insert Into MarketRate Values(?,?,?,?,?)", "titid");
    int next = database::FirstFreeKey(transaction_, "MarketRate");
    std::size_t added = 0;
    for (const RateRow& row : portfolio_.rates) {
      const std::string day = text::FormatDmy(row.date).toStdString();
      const int scrip = names_.scrips[row.scrip].value;
      const auto [entry, fresh] = known.try_emplace({day, scrip}, row.rate);
      if (!fresh) {
        if (entry->second != row.rate && scrip != 0) {
          Fail(FileKind::kRates, row.line, "rate",
               fmt::format("the scrip has the rate {} on this date already", entry->second));
        }
        continue;
      }
      writer.Text(text::FinancialYear::Of(row.date).Utf8())
          .Int(next++)
          .Text(day)
          .Int(scrip)
          .Double(row.rate)
          .EndRow();
      ++added;
    }
    writer.Finish();
    database::KeepKeys(transaction_, "MarketRate", next);
    Count("market rates", added);
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
