#include "reports/broker_ledger/BrokerLedger.h"

#include "core/records/Bill.h"
#include "core/records/Money.h"
#include "core/records/Query.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <QCoreApplication>

#include <algorithm>
#include <numeric>
#include <unordered_map>

namespace quorvane::broker_ledger {
namespace {

/// Payments and receipts: the table, the words for the transaction modes 0 and any other, the side.
struct MoneyTable {
  std::string_view name;
  const char* modes[2];
  bool debit;
};

constexpr MoneyTable kPayments{records::Table<records::Payment>::kName,
                               {QT_TRANSLATE_NOOP("BrokerLedger", "Payment"),
                                QT_TRANSLATE_NOOP("BrokerLedger", "Dr. By Broker")},
                               true};
constexpr MoneyTable kReceipts{records::kReceipts,
                               {QT_TRANSLATE_NOOP("BrokerLedger", "Receiving"),
                                QT_TRANSLATE_NOOP("BrokerLedger", "Cr. By Broker")},
                               false};

class LedgerReader {
 public:
  LedgerReader(database::Connection& connection, const LedgerQuery& query, Progress& progress)
      : connection_(connection), query_(query), progress_(progress) {}

  BrokerLedger Read() {
    progress_.Begin(Tr("BrokerLedger", "Reading the broker ledger"), 5);
    ReadBrokers();
    ReadOpenings();
    ReadBills();
    ReadMoney(kPayments);
    ReadMoney(kReceipts);
    for (std::size_t i = 0; i < accounts_.size(); ++i) {
      Finish(accounts_[i], openings_[i]);
    }
    std::erase_if(accounts_, [](const BrokerAccount& account) { return account.lines.empty(); });
    return {std::move(accounts_), std::move(faults_)};
  }

 private:
  template <class Record>
  records::Select<Record> Recorded(std::string_view table = records::Table<Record>::kName) {
    records::Select<Record> select(connection_, table);
    select.Where(&Record::client, query_.of.client).Where(&Record::year, query_.of.year);
    select.OrderBy(&Record::id);
    return select;
  }

  void ReadBrokers() {
    for (const auto& row : connection_.Open("Select Id,Name From Broker Order By Name,Id")) {
      const BrokerId id{row.Int(0)};
      if (query_.brokers.empty() || std::ranges::find(query_.brokers, id) != query_.brokers.end()) {
        places_.emplace(id, accounts_.size());
        accounts_.push_back({id, row.Text(1), {}});
      }
    }
    openings_.resize(accounts_.size());
    Step();
  }

  void ReadOpenings() {
    Recorded<records::BrokerOpening>().Each([this](const records::BrokerOpening& opening) {
      const auto place = places_.find(opening.broker);
      if (place != places_.end() && opening.amount > 0) {
        const std::int64_t amount = text::ToPaise(opening.amount);
        openings_[place->second] += opening.side == records::DebitCredit::kDebit ? amount : -amount;
      }
    });
    Step();
  }

  void ReadBills() {
    Recorded<records::Bill>().Each([this](const records::Bill& bill) {
      Add(bill.broker, bill.date,
          {records::FaultKind::kBillWithoutDate, bill.client, bill.id.value,
           bill.number.toStdString(), bill.date.toStdString()},
          QStringLiteral("Amt Bill No. ") + bill.number, text::ToPaise(bill.grand_total));
    });
    Step();
  }

  void ReadMoney(const MoneyTable& table) {
    Recorded<records::Payment>(table.name).Each([&](const records::Payment& payment) {
      const QString mode =
          payment.payment_mode == 0 ? QStringLiteral("Cash") : QStringLiteral("Cheque");
      const std::int64_t amount = text::ToPaise(payment.amount);
      Add(payment.broker, payment.date,
          {records::FaultKind::kPaymentWithoutDate,
           payment.client,
           payment.id,
           {},
           payment.date.toStdString()},
          QStringLiteral("%1 (%2)").arg(Tr("BrokerLedger", table.modes[payment.mode == 0 ? 0 : 1]),
                                        mode),
          table.debit ? amount : -amount);
    });
    Step();
  }

  /// Adds a document of a broker; a positive amount is a debit. `fault` is what it is when its date
  /// cannot be read.
  void Add(BrokerId broker, const QString& day, const records::Fault& fault,
           const QString& particulars, std::int64_t amount) {
    const auto place = places_.find(broker);
    if (place == places_.end()) {
      return;
    }
    const auto date = text::ParseDmy(day);
    if (!date) {
      faults_.push_back(fault);
    } else if (*date < query_.period.from) {
      openings_[place->second] += amount;
    } else if (*date <= query_.period.to) {
      accounts_[place->second].lines.push_back(LineOf(*date, particulars, amount));
    }
  }

  static LedgerLine LineOf(text::Date date, const QString& particulars, std::int64_t amount) {
    return {date, particulars, std::max<std::int64_t>(amount, 0),
            std::max<std::int64_t>(-amount, 0), 0};
  }

  void Finish(BrokerAccount& account, std::int64_t opening) const {
    std::ranges::stable_sort(account.lines, {}, &LedgerLine::date);
    if (opening != 0) {
      account.lines.insert(account.lines.begin(),
                           LineOf(query_.period.from, QStringLiteral("Opening Balance"), opening));
    }
    std::int64_t balance = 0;
    for (LedgerLine& line : account.lines) {
      balance += line.debit - line.credit;
      line.balance = balance;
    }
  }

  void Step() {
    progress_.Step(++steps_);
    progress_.ThrowIfCancelled();
  }

  database::Connection& connection_;
  const LedgerQuery& query_;
  Progress& progress_;
  int steps_ = 0;
  records::Faults faults_;
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

BrokerLedger ReadBrokerLedger(database::Connection& connection, const LedgerQuery& query,
                              Progress& progress) {
  return LedgerReader(connection, query, progress).Read();
}

}  // namespace quorvane::broker_ledger
