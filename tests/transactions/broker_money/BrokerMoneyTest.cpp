#include "reports/broker_ledger/BrokerLedger.h"
#include "support/DatabaseTest.h"
#include "transactions/broker_money/BrokerOpeningBook.h"
#include "transactions/broker_money/PaymentBook.h"

using namespace quorvane;
using namespace quorvane::broker_money;
using test::kAccepted;
using test::TextOf;

namespace {

using Edit = std::function<void(BrokerPayment&)>;

constexpr PaymentKind kPayment = PaymentKind::kPayment;
constexpr PaymentKind kReceipt = PaymentKind::kReceipt;

}  // namespace

Q_DECLARE_METATYPE(Edit)

class BrokerMoneyTest : public test::DeskTest {
  Q_OBJECT

  ClientYear NextYear() { return {desk_->client, desk_->year.Next()}; }
  BrokerOpeningBook Openings() { return {desk_->Connection(), desk_->of}; }

  BrokerOpening NewOpening(double amount, LedgerSide side) {
    return {.id = {}, .broker = desk_->broker, .amount = amount, .side = side};
  }

  BrokerPayment NewPayment(double amount) {
    BrokerPayment payment;
    payment.broker = desk_->broker;
    payment.transaction = 0;
    payment.amount = amount;
    payment.date = QStringLiteral("31/03/2012");
    payment.mode = PaymentMode::kCheque;
    payment.cheque_number = QStringLiteral("O'1");
    return payment;
  }

  void Pay(PaymentKind kind, double amount) {
    BrokerPayment payment = NewPayment(amount);
    QCOMPARE(TextOf(test::Save(PaymentBook(desk_->Connection(), kind, desk_->of), payment)),
             kAccepted);
  }

  void RecordBill(double total) {
    desk_->Connection().Execute(
        "Insert Into SPMaster(Cid,Fyear,ID,BillNo,BDate,BrokId,Total) Values(?,?,1,'B',"
        "'01/05/2011',?,?)",
        desk_->client, desk_->year.Text(), desk_->broker, total);
  }

  /// The next year's balances as "id:amount Dr".
  QStringList Carried() {
    QStringList texts;
    for (const BrokerOpening& opening : BrokerOpeningBook(desk_->Connection(), NextYear()).List()) {
      texts << QStringLiteral("%1:%2 %3")
                   .arg(opening.broker.value)
                   .arg(text::FormatAmount(opening.amount), opening.side == LedgerSide::kDebit
                                                                ? QStringLiteral("Dr")
                                                                : QStringLiteral("Cr"));
    }
    return texts;
  }

 private Q_SLOTS:
  void OneBalanceABroker() {
    BrokerOpening first = NewOpening(100, LedgerSide::kDebit);
    QCOMPARE(TextOf(test::Save(Openings(), first)), kAccepted);
    BrokerOpening second = NewOpening(5, LedgerSide::kCredit);
    QCOMPARE(TextOf(test::Save(Openings(), second)), "Record Already Exists!");
    first.amount = 250.5;
    QCOMPARE(TextOf(test::Save(Openings(), first)), kAccepted);
    const auto list = Openings().List();
    QCOMPARE(list.size(), std::size_t{1});
    QCOMPARE(list[0].amount, 250.5);
    QCOMPARE(list[0].id, first.id);
  }

  void ClosingBalanceIsCarried_data() {
    const test::Table<double, bool, double, double, double, QString> row;
    // Credit positive: opening - bills - payments + receipts.
    row("debit", 100.25, true, 100.25, 50.0, 0.0, "250.50 Dr");
    row("credit", 500.0, false, 100.0, 0.1, 0.2, "400.10 Cr");
    row("nothing left is a credit", 70.1, false, 70.1, 0.0, 0.0, "0.00 Cr");
  }
  void ClosingBalanceIsCarried() {
    const auto [opening, debit, bills, payments, receipts, carried] =
        test::Table<double, bool, double, double, double, QString>::Row();
    if (opening > 0) {
      BrokerOpening row = NewOpening(opening, debit ? LedgerSide::kDebit : LedgerSide::kCredit);
      QCOMPARE(TextOf(test::Save(Openings(), row)), kAccepted);
    }
    RecordBill(bills);
    if (payments > 0) {
      Pay(kPayment, payments);
    }
    if (receipts > 0) {
      Pay(kReceipt, receipts);
    }
    BrokerOpeningBook next(desk_->Connection(), NextYear());
    QVERIFY(next.HasBalancesToCarryForward());
    QCOMPARE(next.CarryForward(), std::size_t{1});
    QCOMPARE(Carried().value(0).section(QLatin1Char(':'), 1), carried);
  }

  // What was typed or carried before makes place: doing it twice leaves one balance a broker, and
  // the ledger's closing balance goes into it.
  void CarryingTwiceLeavesOneBalance() {
    Pay(kPayment, 1234.56);
    BrokerOpeningBook next(desk_->Connection(), NextYear());
    BrokerOpening typed = NewOpening(1, LedgerSide::kCredit);
    QCOMPARE(TextOf(test::Save(next, typed)), kAccepted);
    next.CarryForward();
    next.CarryForward();
    QCOMPARE(Carried(), QStringList(QStringLiteral("%1:1234.56 Dr").arg(desk_->broker.value)));
    Progress progress;
    const auto accounts =
        broker_ledger::ReadBrokerLedger(
            desk_->Connection(), {desk_->of, reporting::Period::Of(desk_->year), {}}, progress)
            .accounts;
    QCOMPARE(accounts.at(0).Closing(), std::int64_t{123456});
  }

  void PaymentRules_data() {
    const test::Table<QString, Edit> row;
    row("all missing: the broker comes first", QStringLiteral("Enter Broker Name."),
        [](BrokerPayment& payment) { payment = {}; });
    row("no amount", QStringLiteral("Enter Amount Greater than Zero."),
        [](BrokerPayment& payment) { payment.amount = -1; });
    row("no date", QStringLiteral("Enter Payment Date."),
        [](BrokerPayment& payment) { payment.date.clear(); });
    row("a day of the next year",
        QStringLiteral("The Payment Date is not in the Financial Year 2011-12."),
        [](BrokerPayment& payment) { payment.date = QStringLiteral("01/04/2012"); });
  }
  void PaymentRules() {
    const auto [text, edit] = test::Table<QString, Edit>::Row();
    BrokerPayment payment = NewPayment(10);
    edit(payment);
    PaymentBook book(desk_->Connection(), kPayment, desk_->of);
    QCOMPARE(TextOf(test::Save(book, payment)), text);
    QVERIFY(book.List().empty());
  }
};

static const test::RegisterTest<BrokerMoneyTest> kRegistered;
#include "BrokerMoneyTest.moc"
