#include "transactions/broker_ledger/BrokerLedger.h"

#include "core/text/Amounts.h"

#include <QCoreApplication>

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <unordered_map>

namespace quorvane::broker_ledger {
namespace {

using database::Recordset;

QString Words(const char* text) {
  return QCoreApplication::translate("BrokerLedger", text);
}

/// Transaction and payment modes by their stored number: 0, and anything else.
struct MoneyTable {
  std::string_view sql;
  const char* document;
  const char* modes[2];
  bool debit;
};

constexpr MoneyTable kPayments{
    "Select BrId,PDate,Amt,TMode,PMode,Id From BrPayment Where Cid=? and Fyear=? Order By Id",
    "payment",
    {QT_TRANSLATE_NOOP("BrokerLedger", "Payment"),
     QT_TRANSLATE_NOOP("BrokerLedger", "Dr. By Broker")},
    true};
constexpr MoneyTable kReceipts{
    "Select BrId,PDate,Amt,TMode,PMode,Id From BrRec Where Cid=? and Fyear=? Order By Id",
    "receipt",
    {QT_TRANSLATE_NOOP("BrokerLedger", "Receiving"),
     QT_TRANSLATE_NOOP("BrokerLedger", "Cr. By Broker")},
    false};

class LedgerReader {
 public:
  LedgerReader(database::Connection& connection, const LedgerQuery& query, Progress& progress)
      : connection_(connection), query_(query), progress_(progress) {}

  std::vector<BrokerAccount> Read() {
    progress_.Begin(Words("Reading the broker ledger"), 5);
    ReadBrokers();
    ReadOpenings();
    ReadBills();
    ReadMoney(kPayments);
    ReadMoney(kReceipts);
    for (std::size_t i = 0; i < accounts_.size(); ++i) {
      Finish(accounts_[i], openings_[i]);
    }
    std::erase_if(accounts_, [](const BrokerAccount& account) { return account.lines.empty(); });
    return std::move(accounts_);
  }

 private:
  void ReadBrokers() {
    for (const auto& row : connection_.Open("Select Id,Name From Broker Order By Name,Id")) {
      const BrokerId id{row.Int(std::size_t{0})};
      if (query_.brokers.empty() || std::ranges::find(query_.brokers, id) != query_.brokers.end()) {
        places_.emplace(id, accounts_.size());
        accounts_.push_back({id, row.Text(1), {}});
      }
    }
    openings_.resize(accounts_.size());
    Step();
  }

  void ReadOpenings() {
    for (const auto& row :
         Open("Select BrId,OpBal,Dr From BrOpBal Where CId=? and Fyear=? Order By Id")) {
      const auto place = places_.find(BrokerId{row.Int(std::size_t{0})});
      if (place != places_.end() && row.Double(1) > 0) {
        const std::int64_t amount = text::ToPaise(row.Double(1));
        openings_[place->second] += row.Int(2) == 0 ? amount : -amount;
      }
    }
    Step();
  }

  void ReadBills() {
    for (const auto& row :
         Open("Select BrokId,BDate,Total,BillNo,ID From SPMaster Where Cid=? and Fyear=? Order By "
              "ID")) {
      if (row.Utf8(1).empty()) {
        continue;
      }
      const std::int64_t total = text::ToPaise(row.Double(2));
      Add(row, "bill", row.Int(4),
          Words(QT_TRANSLATE_NOOP("BrokerLedger", "Amt Bill No. ")) + row.Text(3), total);
    }
    Step();
  }

  void ReadMoney(const MoneyTable& table) {
    for (const auto& row : Open(table.sql)) {
      const QString mode = row.Int(4) == 0 ? Words(QT_TRANSLATE_NOOP("BrokerLedger", "Cash"))
                                           : Words(QT_TRANSLATE_NOOP("BrokerLedger", "Cheque"));
      const std::int64_t amount = text::ToPaise(row.Double(2));
      Add(row, table.document, row.Int(5),
          QStringLiteral("%1 (%2)").arg(Words(table.modes[row.Int(3) == 0 ? 0 : 1]), mode),
          table.debit ? amount : -amount);
    }
    Step();
  }

  /// Adds a document of the row's broker (its first column) and date (its second); a positive
  /// amount is a debit.
  void Add(const Recordset& row, const char* document, int id, const QString& particulars,
           std::int64_t amount) {
    const auto place = places_.find(BrokerId{row.Int(std::size_t{0})});
    if (place == places_.end()) {
      return;
    }
    const auto date = text::ParseDmy(row.Utf8(1));
    if (!date) {
      throw std::runtime_error(
          fmt::format("the {} with the key {} has no date that can be read: "
                      "\"{}\"",
                      document, id, row.Utf8(1)));
    }
    if (*date > query_.period.to) {
      return;
    }
    if (*date < query_.period.from) {
      openings_[place->second] += amount;
      return;
    }
    accounts_[place->second].lines.push_back(LineOf(*date, particulars, amount));
  }

  static LedgerLine LineOf(text::Date date, const QString& particulars, std::int64_t amount) {
    return {date, particulars, std::max<std::int64_t>(amount, 0),
            std::max<std::int64_t>(-amount, 0), 0};
  }

  void Finish(BrokerAccount& account, std::int64_t opening) const {
    std::ranges::stable_sort(account.lines, {}, &LedgerLine::date);
    if (opening != 0) {
      account.lines.insert(
          account.lines.begin(),
          LineOf(query_.period.from, Words(QT_TRANSLATE_NOOP("BrokerLedger", "Opening Balance")),
                 opening));
    }
    std::int64_t balance = 0;
    for (LedgerLine& line : account.lines) {
      balance += line.debit - line.credit;
      line.balance = balance;
    }
  }

  Recordset Open(std::string_view sql) {
    return connection_.Open(sql, query_.of.client, query_.of.year.Text());
  }

  void Step() {
    progress_.Step(++steps_);
    progress_.ThrowIfCancelled();
  }

  database::Connection& connection_;
  const LedgerQuery& query_;
  Progress& progress_;
  int steps_ = 0;
  std::vector<BrokerAccount> accounts_;
  std::vector<std::int64_t> openings_;  ///< paise by account, debit positive
  std::unordered_map<BrokerId, std::size_t> places_;
};

}  // namespace

std::int64_t BrokerAccount::Debits() const {
  return std::accumulate(lines.begin(), lines.end(), std::int64_t{0},
                         [](std::int64_t sum, const LedgerLine& line) { return sum + line.debit; });
}

std::int64_t BrokerAccount::Credits() const {
  return std::accumulate(
      lines.begin(), lines.end(), std::int64_t{0},
      [](std::int64_t sum, const LedgerLine& line) { return sum + line.credit; });
}

std::vector<BrokerAccount> ReadBrokerLedger(database::Connection& connection,
                                            const LedgerQuery& query, Progress& progress) {
  return LedgerReader(connection, query, progress).Read();
}

}  // namespace quorvane::broker_ledger
