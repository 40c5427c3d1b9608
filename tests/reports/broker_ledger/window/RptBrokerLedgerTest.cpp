#include "controls/DateBox.h"
#include "reports/broker_ledger/window/RptBrokerLedger.h"
#include "support/ShownWindow.h"
#include "transactions/broker_money/BrokerOpeningBook.h"

using namespace quorvane;
using namespace quorvane::broker_ledger;
using test::ForClient;
using Shown = test::ShownWindow<RptBrokerLedger>;

class RptBrokerLedgerTest : public test::DeskTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    desk_.emplace();
    desk_->database.AddBroker(QStringLiteral("ABLE"));
  }
  void init() {
    desk_->Empty();
    RecordYear();
  }

  // Opening 5000.00 Cr, a bill of 1010.00 Dr, paid 4500.50 Dr, received 250.25 Cr: -5000.00 +
  // 1010.00 + 4500.50 - 250.25 = 260.25 Dr, which the next year opens with.
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

  void PeriodAndBrokersAreChecked_data() {
    const test::Table<QString, QString, bool, QString> row;
    row("outside the year", "31/03/2011", "31/03/2012", true,
        "The date lies outside the financial year 2011-12.");
    row("no broker", "01/04/2011", "01/04/2011", false, "Enter Broker Name.");
  }
  void PeriodAndBrokersAreChecked() {
    const auto [from, to, brokers, text] = test::Table<QString, QString, bool, QString>::Row();
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Click("CmdReport");
    const QStringList before = Screen(shown);
    shown.Named("Text1_0")->setText(from);
    shown.Named("Text1_1")->setText(to);
    shown.Named<controls::Grid>("VSB")->Model().TickAll(brokers);
    shown.Click("CmdReport");
    QCOMPARE(shown.messages.LastText(), text);
    QCOMPARE(Screen(shown), before);
  }

  void OnlyTickedBrokersAreShown() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    auto& brokers = shown.Named<controls::Grid>("VSB")->Model();
    QCOMPARE(brokers.columnCount(), 2);
    QCOMPARE(brokers.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "BROKER NAME");
    brokers.SetTicked(brokers.RowOf(desk_->broker.value), false);
    shown.Click("CmdReport");
    QCOMPARE(Screen(shown), QStringList());
  }

 private:
  void RecordYear() {
    database::Connection& connection = desk_->Connection();
    connection.Execute(
        "Insert Into SPMaster(Cid,Fyear,ID,BillNo,BDate,BrokId,Total) "
        "Values(?,'2011-12',1,'B/1','10/06/2011',?,1010)",
        desk_->client, desk_->broker);
    connection.Execute(
        "Insert Into BrOpBal(CId,Fyear,Id,BrId,OpBal,Dr) Values(?,'2011-12',1,?,5000,1)",
        desk_->client, desk_->broker);
    connection.Execute(
        "Insert Into BrPayment(Cid,Fyear,Id,BrId,TMode,Amt,PDate,PMode) "
        "Values(?,'2011-12',1,?,0,4500.5,'10/06/2011',1)",
        desk_->client, desk_->broker);
    connection.Execute(
        "Insert Into BrRec(Cid,Fyear,Id,BrId,TMode,Amt,PDate,PMode) "
        "Values(?,'2011-12',1,?,0,250.25,'31/03/2012',0)",
        desk_->client, desk_->broker);
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
};

static const test::RegisterTest<RptBrokerLedgerTest> kRegistered;
#include "RptBrokerLedgerTest.moc"
