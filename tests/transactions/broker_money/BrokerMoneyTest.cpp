#include "reports/broker_ledger/BrokerLedger.h"
#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/broker_money/BrokerOpeningBook.h"
#include "transactions/broker_money/PaymentBook.h"

#include <QTest>

#include <functional>

using namespace quorvane;
using namespace quorvane::broker_money;
using test::Desk;
using test::kAccepted;
using test::TextOf;

namespace {

using Edit = std::function<void(BrokerPayment&)>;

constexpr PaymentKind kPayment = PaymentKind::kPayment;
constexpr PaymentKind kReceipt = PaymentKind::kReceipt;

}  // namespace

Q_DECLARE_METATYPE(Edit)

class BrokerMoneyTest : public QObject {
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
    QCOMPARE(TextOf(PaymentBook(desk_->Connection(), kind, desk_->of).Save(payment)), kAccepted);
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
  void initTestCase() { desk_ = std::make_unique<Desk>(); }
  void cleanupTestCase() { desk_.reset(); }
  void cleanup() {
    for (const char* table : {"BrOpBal", "BrPayment", "BrRec", "SPMaster"}) {
      desk_->Connection().Execute(fmt::format("Delete From {}", table));
    }
    desk_->Connection().Execute("Update RecordKey Set LastKey=0");
  }

  void OneBalanceABroker() {
    BrokerOpening first = NewOpening(100, LedgerSide::kDebit);
    QCOMPARE(TextOf(Openings().Save(first)), kAccepted);
    BrokerOpening second = NewOpening(5, LedgerSide::kCredit);
    QCOMPARE(TextOf(Openings().Save(second)), QStringLiteral("Record Already Exists!"));
    first.amount = 250.5;
    QCOMPARE(TextOf(Openings().Save(first)), kAccepted);
    const auto list = Openings().List();
    QCOMPARE(list.size(), std::size_t{1});
    QCOMPARE(list[0].amount, 250.5);
    QCOMPARE(list[0].id, first.id);
  }

  void ClosingBalanceIsCarried_data() {
    QTest::addColumn<double>("opening");
    QTest::addColumn<bool>("debit");
    QTest::addColumn<double>("bills");
    QTest::addColumn<double>("payments");
    QTest::addColumn<double>("receipts");
    QTest::addColumn<QString>("carried");
    // Credit positive: opening - bills - payments + receipts.
    QTest::newRow("debit") << 100.25 << true << 100.25 << 50.0 << 0.0 << "250.50 Dr";
    QTest::newRow("credit") << 500.0 << false << 100.0 << 0.1 << 0.2 << "400.10 Cr";
    QTest::newRow("nothing left is a credit") << 70.1 << false << 70.1 << 0.0 << 0.0 << "0.00 Cr";
    QTest::newRow("a bill that brings money") << 0.0 << true << -80.0 << 0.0 << 0.0 << "80.00 Cr";
  }

  void ClosingBalanceIsCarried() {
    QFETCH(double, opening);
    QFETCH(bool, debit);
    QFETCH(double, bills);
    QFETCH(double, payments);
    QFETCH(double, receipts);
    if (opening > 0) {
      BrokerOpening row = NewOpening(opening, debit ? LedgerSide::kDebit : LedgerSide::kCredit);
      QCOMPARE(TextOf(Openings().Save(row)), kAccepted);
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
    QTEST(Carried().value(0).section(QLatin1Char(':'), 1), "carried");
  }

  // What was typed or carried before makes place: doing it twice leaves one balance a broker, and
  // the ledger's closing balance goes into it.
  void CarryingTwiceLeavesOneBalance() {
    Pay(kPayment, 1234.56);
    BrokerOpeningBook next(desk_->Connection(), NextYear());
    BrokerOpening typed = NewOpening(1, LedgerSide::kCredit);
    QCOMPARE(TextOf(next.Save(typed)), kAccepted);
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
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QString& text, const Edit& edit) {
      QTest::newRow(name) << edit << text;
    };
    row("all missing: the broker comes first", QStringLiteral("Enter Broker Name."),
        [](BrokerPayment& payment) { payment = {}; });
    row("no transaction mode", QStringLiteral("Select Transaction Mode."),
        [](BrokerPayment& payment) { payment.transaction.reset(); });
    row("no amount", QStringLiteral("Enter Amount Greater than Zero."),
        [](BrokerPayment& payment) { payment.amount = -1; });
    row("no date", QStringLiteral("Enter Payment Date."),
        [](BrokerPayment& payment) { payment.date.clear(); });
    row("a day of the next year",
        QStringLiteral("The Payment Date is not in the Financial Year 2011-12."),
        [](BrokerPayment& payment) { payment.date = QStringLiteral("01/04/2012"); });
    row("no payment mode", QStringLiteral("Select Payment Mode."),
        [](BrokerPayment& payment) { payment.mode.reset(); });
  }

  void PaymentRules() {
    QFETCH(Edit, edit);
    BrokerPayment payment = NewPayment(10);
    edit(payment);
    PaymentBook book(desk_->Connection(), kPayment, desk_->of);
    QTEST(TextOf(book.Save(payment)), "text");
    QVERIFY(book.List().empty());
  }

  void PaymentsAndReceiptsAreApart() {
    BrokerPayment payment = NewPayment(10.1);
    PaymentBook payments(desk_->Connection(), kPayment, desk_->of);
    PaymentBook receipts(desk_->Connection(), kReceipt, desk_->of);
    QCOMPARE(TextOf(payments.Save(payment)), kAccepted);
    payment.remark = QStringLiteral("changed");
    QCOMPARE(TextOf(payments.Save(payment)), kAccepted);
    QVERIFY(receipts.List().empty());
    const auto list = payments.List();
    QCOMPARE(list.size(), std::size_t{1});
    QCOMPARE(list[0].cheque_number, QStringLiteral("O'1"));
    QCOMPARE(list[0].remark, QStringLiteral("changed"));
    payments.Delete(list[0].id);
    QVERIFY(payments.List().empty());
  }

 private:
  std::unique_ptr<Desk> desk_;
};

static const test::RegisterTest<BrokerMoneyTest> kRegistered;

#include "BrokerMoneyTest.moc"
