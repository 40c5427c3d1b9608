#include "controls/DateBox.h"
#include "masters/Records.h"
#include "masters/ShownWindow.h"
#include "reports/broker_ledger/window/RptBrokerLedger.h"
#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/bills/BillBook.h"
#include "transactions/broker_money/BrokerOpeningBook.h"
#include "transactions/broker_money/PaymentBook.h"

using namespace quorvane;
using namespace quorvane::broker_ledger;
using broker_money::PaymentKind;
using test::Desk;
using test::ForClient;
using Shown = test::ShownWindow<RptBrokerLedger>;

class RptBrokerLedgerTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    desk_ = std::make_unique<Desk>();
    able_ = desk_->database.AddBroker(QStringLiteral("ABLE"));
    RecordYear();
  }
  void cleanupTestCase() { desk_.reset(); }

  // Opening 5000.00 Cr. The bill buys 10 shares at 100.00 with 0.50 brokerage each: 10 x 100.50 =
  // 1005.00, service tax 1.03, STT 1.25, other charges 2.72: 1010.00 Dr. Paid 4500.50 Dr, and
  // 250.25 came in, Cr: -5000.00 + 1010.00 + 4500.50 - 250.25 = 260.25 Dr, which the next year
  // opens with.
  void WholeYearRunsFromTheRecordsToTheClosingBalance() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Click("CmdReport");
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Screen(shown), QStringList({
                                "O'BRIEN & SONS",
                                "01/04/2011|Opening Balance||5000.00|5000.00Cr",
                                "10/06/2011|Amt Bill No. B/1|1010.00||3990.00Cr",
                                "10/06/2011|Payment (Cheque)|4500.50||510.50Dr",
                                "31/03/2012|Receiving (Cash)||250.25|260.25Dr",
                                "|Closing Balance|5510.50|5250.25|260.25Dr",
                            }));
    broker_money::BrokerOpeningBook next(desk_->Connection(), {desk_->client, desk_->year.Next()});
    next.CarryForward();
    QCOMPARE(next.List().front().amount, 260.25);
    QCOMPARE(*next.List().front().side, broker_money::LedgerSide::kDebit);
  }

  void MonthSetsThePeriodAndFoldsWhatWasBefore() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Named<controls::ComboBox>("CmbMth")->setFocus(Qt::TabFocusReason);
    shown.Fill({"feb"});
    QCOMPARE(shown.TextIn("Text1_0"), QStringLiteral("01/02/2012"));
    QCOMPARE(shown.TextIn("Text1_1"), QStringLiteral("29/02/2012"));
    shown.Click("CmdReport");
    QCOMPARE(Screen(shown),
             QStringList({"O'BRIEN & SONS", "01/02/2012|Opening Balance|510.50||510.50Dr",
                          "|Closing Balance|510.50|0.00|510.50Dr"}));
  }

  void PeriodAndBrokersAreChecked_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<bool>("brokers");
    QTest::addColumn<QString>("text");
    QTest::newRow("no from date") << ""
                                  << "" << true << "Enter From Date.";
    QTest::newRow("no to date") << "01/04/2011"
                                << "" << true << "Enter To Date.";
    QTest::newRow("from after to")
        << "02/04/2011"
        << "01/04/2011" << true << "From Date Can't be Greater than To Date.";
    QTest::newRow("outside the year")
        << "31/03/2011"
        << "31/03/2012" << true << "The date lies outside the financial year 2011-12.";
    QTest::newRow("no broker") << "01/04/2011"
                               << "01/04/2011" << false << "Enter Broker Name.";
  }
  void PeriodAndBrokersAreChecked() {
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(bool, brokers);
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Click("CmdReport");
    const QStringList before = Screen(shown);
    shown.Named("Text1_0")->setText(from);
    shown.Named("Text1_1")->setText(to);
    shown.Named<controls::Grid>("VSB")->Model().TickAll(brokers);
    shown.Click("CmdReport");
    QTEST(shown.messages.LastText(), "text");
    QCOMPARE(Screen(shown), before);
  }

  void OnlyTickedBrokersAreShown() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    auto& brokers = shown.Named<controls::Grid>("VSB")->Model();
    QCOMPARE(brokers.columnCount(), 2);
    QCOMPARE(brokers.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(),
             QStringLiteral("BROKER NAME"));
    brokers.SetTicked(brokers.RowOf(desk_->broker.value), false);
    shown.Click("CmdReport");
    QCOMPARE(Screen(shown), QStringList());
  }

 private:
  void RecordYear() {
    records::BillLine line = desk_->Purchase(10, 100);
    line.brokerage = 0.5;
    line.service_tax = 1.03;
    line.stt = 1.25;
    records::ComputeAmount(line);
    records::Bill bill = desk_->NewBill({line});
    bill.other_charges = 2.72;
    const records::BillTotals totals =
        records::ComputeTotals(bill.lines, bill.other_charges, bill.transaction_charges);
    bill.total = totals.total;
    bill.stt = totals.stt;
    bill.grand_total = totals.grand_total;
    QCOMPARE(test::TextOf(bills::BillBook(desk_->Connection(), desk_->of).Save(bill)),
             test::kAccepted);
    broker_money::BrokerOpening opening{.id = {},
                                        .broker = desk_->broker,
                                        .amount = 5000,
                                        .side = broker_money::LedgerSide::kCredit};
    QCOMPARE(
        test::TextOf(broker_money::BrokerOpeningBook(desk_->Connection(), desk_->of).Save(opening)),
        test::kAccepted);
    Pay(PaymentKind::kPayment, 4500.5, "10/06/2011", broker_money::PaymentMode::kCheque);
    Pay(PaymentKind::kReceipt, 250.25, "31/03/2012", broker_money::PaymentMode::kCash);
  }

  void Pay(PaymentKind kind, double amount, const char* date, broker_money::PaymentMode mode) {
    broker_money::BrokerPayment payment;
    payment.broker = desk_->broker;
    payment.transaction = 0;
    payment.amount = amount;
    payment.date = QLatin1String(date);
    payment.mode = mode;
    QCOMPARE(
        test::TextOf(broker_money::PaymentBook(desk_->Connection(), kind, desk_->of).Save(payment)),
        test::kAccepted);
  }

  /// The rows on the screen, cells parted by "|".
  static QStringList Screen(const Shown& shown) {
    const QAbstractItemModel& model = *shown.Named<reporting::ReportGridView>("VS")->model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column) {
        cells += model.index(row, column).data().toString();
      }
      while (cells.size() > 1 && cells.last().isEmpty()) {
        cells.removeLast();
      }
      rows += cells.join(QLatin1Char('|'));
    }
    return rows;
  }

  std::unique_ptr<Desk> desk_;
  BrokerId able_;
};

static const test::RegisterTest<RptBrokerLedgerTest> kRegistered;

#include "RptBrokerLedgerTest.moc"
