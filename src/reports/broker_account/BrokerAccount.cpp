#include "reports/broker_account/BrokerAccount.h"

#include "core/records/Bill.h"
#include "core/records/Money.h"
#include "core/records/Query.h"
#include "core/text/Tr.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace quorvane::broker_account {
namespace {

using records::NoteAmounts;
using text::Date;
using text::FinancialYear;

/// The documents of one day, in their order.
enum class Order : std::uint8_t { kBill, kPayment, kReceipt };

/// Payments and receipts: the table, the words of their modes 0 and 1 as they are entered.
struct MoneyTable {
  std::string_view name;
  const char* modes[2];
  Order order;
};

constexpr MoneyTable kPayments{
    records::Table<records::Payment>::kName, {"Payment", "Cr. By Broker"}, Order::kPayment};
constexpr MoneyTable kReceipts{records::kReceipts, {"Receiving", "Dr. By Broker"}, Order::kReceipt};

struct Document {
  Date date;
  Order order = Order::kBill;
  QString particulars;
  NoteAmounts note;
  Paise amount;  ///< owed to the broker; below zero it settles or is due
};

/// Everything that is recorded of a client with one broker.
struct BrokerRecords {
  std::vector<Document> documents;
  std::map<FinancialYear, Paise> openings;
  std::map<FinancialYear, Paise> ledger;  ///< what a year adds to the balance of the broker ledger
};

QString MoneyText(const MoneyTable& table, const records::Payment& payment) {
  const QString number = payment.cheque_number.trimmed();
  const QString how = payment.payment_mode == 0 ? QStringLiteral("Cash")
                      : number.isEmpty()        ? QStringLiteral("Cheque")
                                                : QStringLiteral("Cheque ") + number;
  return QStringLiteral("%1 (%2)").arg(QLatin1String(table.modes[payment.mode == 0 ? 0 : 1]), how);
}

/// Reads the records of a client by broker.
class RecordReader {
 public:
  RecordReader(database::Connection& connection, const AccountQuery& query, Progress& progress)
      : connection_(connection), query_(query), progress_(progress) {}

  std::map<BrokerId, BrokerRecords> Read(BrokerAccounts& result) {
    progress_.Begin(Tr("BrokerAccount", "Reading the broker accounts"), 5);
    ReadOpenings();
    ReadLines();
    ReadBills(result);
    ReadMoney(kPayments, result.faults);
    ReadMoney(kReceipts, result.faults);
    return std::move(by_broker_);
  }

 private:
  template <class Record>
  records::Select<Record> Recorded(std::string_view table = records::Table<Record>::kName) {
    records::Select<Record> select(connection_, table);
    select.Where(&Record::client, query_.of.client);
    return select;
  }

  bool IsWanted(BrokerId broker) const {
    return query_.brokers.empty() ||
           std::ranges::find(query_.brokers, broker) != query_.brokers.end();
  }

  void ReadOpenings() {
    Recorded<records::BrokerOpening>().Each([this](const records::BrokerOpening& opening) {
      if (!IsWanted(opening.broker) || !(opening.amount > 0)) {
        return;
      }
      const Paise amount = Paise::OfRupees(opening.amount);
      const Paise owed = opening.side == records::DebitCredit::kDebit ? amount : -amount;
      BrokerRecords& broker = by_broker_[opening.broker];
      broker.openings[opening.year] += owed;
      broker.ledger[opening.year] += owed;
    });
    Step();
  }

  void ReadLines() {
    using records::BillLine;
    Recorded<BillLine>()
        .Only<&BillLine::bill, &BillLine::year, &BillLine::side, &BillLine::amount,
              &BillLine::service_tax, &BillLine::stt>([this](const BillLine& line) {
          notes_[{line.year, line.bill}] += records::AmountsOnNote({&line, 1}, 0, 0);
        });
    Step();
  }

  void ReadBills(BrokerAccounts& result) {
    Recorded<records::Bill>().OrderBy(&records::Bill::id).Each([&](const records::Bill& bill) {
      if (!IsWanted(bill.broker)) {
        return;
      }
      by_broker_[bill.broker].ledger[bill.year] += Paise::OfRupees(bill.grand_total);
      const auto lines = notes_.find({bill.year, bill.id});
      NoteAmounts note = records::AmountsOnNote({}, bill.other_charges, bill.transaction_charges);
      if (lines != notes_.end()) {
        note += lines->second;
      }
      const auto date = text::ParseDmy(bill.date);
      if (!date) {
        result.faults.push_back({records::FaultKind::kBillWithoutDate, bill.client, bill.id.value,
                                 bill.number.toStdString(), bill.date.toStdString()});
        return;
      }
      if (lines == notes_.end() && *date <= query_.period.to) {
        result.without_lines.push_back(
            QStringLiteral("%1 of %2").arg(bill.number, text::FormatDmy(*date)));
      }
      Add(bill.broker,
          {*date, Order::kBill, QStringLiteral("Bill No. ") + bill.number, note, -note.Net()});
    });
    Step();
  }

  void ReadMoney(const MoneyTable& table, records::Faults& faults) {
    const auto take = [&](const records::Payment& payment) {
      if (!IsWanted(payment.broker)) {
        return;
      }
      const Paise amount = Paise::OfRupees(payment.amount);
      const bool paid = table.order == Order::kPayment;
      by_broker_[payment.broker].ledger[payment.year] += paid ? amount : -amount;
      const auto date = text::ParseDmy(payment.date);
      if (!date) {
        faults.push_back({records::FaultKind::kPaymentWithoutDate,
                          payment.client,
                          payment.id,
                          {},
                          payment.date.toStdString()});
        return;
      }
      Add(payment.broker,
          {*date, table.order, MoneyText(table, payment), {}, paid ? -amount : amount});
    };
    Recorded<records::Payment>(table.name).OrderBy(&records::Payment::id).Each(take);
    Step();
  }

  void Add(BrokerId broker, Document document) {
    if (document.date <= query_.period.to) {
      by_broker_[broker].documents.push_back(std::move(document));
    }
  }

  void Step() {
    progress_.Step(++steps_);
    progress_.ThrowIfCancelled();
  }

  database::Connection& connection_;
  const AccountQuery& query_;
  Progress& progress_;
  int steps_ = 0;
  std::map<BrokerId, BrokerRecords> by_broker_;
  std::map<std::pair<FinancialYear, BillId>, NoteAmounts> notes_;
};

/// Makes one account of the records: all years in turn, the wanted period with its lines.
class AccountMaker {
 public:
  AccountMaker(const AccountQuery& query, BrokerRecords& records)
      : query_(query), records_(records) {}

  void Make(BrokerAccount& account) {
    std::ranges::stable_sort(records_.documents, {},
                             [](const Document& one) { return std::tuple(one.date, one.order); });
    for (const auto& [year, recorded] : records_.openings) {
      if (year < query_.of.year) {
        PostBefore(year.FirstDay());
        Open(year);
      }
    }
    PostBefore(query_.of.year.FirstDay());
    account.opening = Open(query_.of.year);
    const bool more_before = PostBefore(query_.period.from);
    if (balance_ != Paise()) {
      account.lines.push_back(OpeningLine(account.opening, more_before));
    }
    for (; next_ < records_.documents.size(); ++next_) {
      account.lines.push_back(LineOf(records_.documents[next_]));
    }
    account.open.assign(open_.Items().begin(), open_.Items().end());
  }

 private:
  /// True when there was something to post.
  bool PostBefore(Date day) {
    const std::size_t first = next_;
    for (; next_ < records_.documents.size() && records_.documents[next_].date < day; ++next_) {
      const Document& document = records_.documents[next_];
      Post(document.date, document.particulars, document.amount);
    }
    return next_ > first;
  }

  void Post(Date date, const QString& particulars, Paise amount) {
    anything_ = true;
    balance_ += amount;
    open_.Post({date, particulars, amount});
  }

  /// Takes an entered balance in; what it has more or less than the years before becomes an open
  /// item of its own.
  Opening Open(FinancialYear year) {
    Opening opening;
    if (anything_) {
      opening.closing_before = balance_;
    }
    const auto recorded = records_.openings.find(year);
    if (recorded == records_.openings.end()) {
      return opening;
    }
    opening.recorded = recorded->second;
    opening.carried_from_ledger = anything_ && recorded->second == LedgerClosing(year.Previous());
    const Paise difference = opening.Amount() - balance_;
    if (difference != Paise()) {
      Post(year.FirstDay(),
           anything_ ? QStringLiteral("Difference of the Opening Balance %1").arg(year.Text())
                     : QStringLiteral("Opening Balance %1").arg(year.Text()),
           difference);
    }
    return opening;
  }

  /// None when the broker ledger has nothing of the year.
  std::optional<Paise> LedgerClosing(FinancialYear year) const {
    const auto found = records_.ledger.find(year);
    return found == records_.ledger.end() ? std::nullopt : std::optional(found->second);
  }

  AccountLine OpeningLine(const Opening& opening, bool more_before) const {
    const QString source =
        opening.IsEntered() ? QStringLiteral("entered")
                            : QStringLiteral("closing of %1").arg(query_.of.year.Previous().Text());
    const QString text = more_before ? QStringLiteral("Brought Forward")
                                     : QStringLiteral("Opening (%1)").arg(source);
    return SidesOf({query_.period.from, text, {}, {}, {}, balance_}, balance_);
  }

  AccountLine LineOf(const Document& document) {
    Post(document.date, document.particulars, document.amount);
    return SidesOf({document.date, document.particulars, document.note, {}, {}, balance_},
                   document.amount);
  }

  static AccountLine SidesOf(AccountLine line, Paise amount) {
    (amount > Paise() ? line.debit : line.credit) = std::max(amount, -amount);
    return line;
  }

  const AccountQuery& query_;
  BrokerRecords& records_;
  std::size_t next_ = 0;  ///< of the documents
  bool anything_ = false;
  Paise balance_;
  OpenItems open_;
};

std::map<BrokerId, QString> BrokerNames(database::Connection& connection) {
  std::map<BrokerId, QString> names;
  for (const auto& row : connection.Open("Select Id,Name From Broker")) {
    names.emplace(BrokerId{row.Int(0)}, row.Text(1));
  }
  return names;
}

Paise SumOf(const std::vector<AccountLine>& lines, Paise AccountLine::*side) {
  Paise sum;
  for (const AccountLine& line : lines) {
    sum += line.*side;
  }
  return sum;
}

}  // namespace

Paise BrokerAccount::Debits() const {
  return SumOf(lines, &AccountLine::debit);
}

Paise BrokerAccount::Credits() const {
  return SumOf(lines, &AccountLine::credit);
}

BrokerAccounts ReadBrokerAccounts(database::Connection& connection, const AccountQuery& query,
                                  Progress& progress) {
  BrokerAccounts result;
  auto by_broker = RecordReader(connection, query, progress).Read(result);
  const auto names = BrokerNames(connection);
  for (auto& [broker, records] : by_broker) {
    const auto name = names.find(broker);
    BrokerAccount account;
    account.broker = broker;
    account.name =
        name == names.end() ? QStringLiteral("Broker No. %1").arg(broker.value) : name->second;
    AccountMaker(query, records).Make(account);
    if (!account.lines.empty() || account.opening.Differs()) {
      result.accounts.push_back(std::move(account));
    }
  }
  std::ranges::stable_sort(result.accounts, {}, &BrokerAccount::name);
  return result;
}

}  // namespace quorvane::broker_account
