#include "support/ShownWindow.h"
#include "transactions/broker_money/window/FrmBrOpBal.h"

using namespace quorvane;
using namespace quorvane::broker_money;
using test::ForClient;
using Shown = test::ShownWindow<FrmBrOpBal>;

namespace {

const QString kQuestion = QStringLiteral("Do you want to Carry Forward From Previous Year?");

}  // namespace

class FrmBrOpBalTest : public test::DeskTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    desk_.emplace();
    able_ = desk_->database.AddBroker(QStringLiteral("ABLE"));
  }

  void KeyboardAloneAddsBalancesLargestFirst() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.AddByKeyboard({"o'b", "100.255", "c"});
    shown.AddByKeyboard({"able", "250.5", "d"});
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Balances(), QStringList({"1|100.26|1", "2|250.5|0"}));
    QCOMPARE(shown.ListRow(0), QStringList({"ABLE", "250.50", "Dr"}));
    QCOMPARE(shown->CurrentId(), 2);
  }

  void BalancesOfTheYearBeforeAreOfferedOnceOnOpening() {
    PayLastYear();
    const Shown declined(desk_->database, ForClient{desk_->of, {false}});
    QCOMPARE(declined.messages.Texts(), QStringList(kQuestion));
    QCOMPARE(declined.messages.said.back().icon, controls::Icon::kInformation);
    QCOMPARE(Balances(), QStringList());
    const Shown accepted(desk_->database, ForClient{desk_->of, {true}});
    QCOMPARE(Amounts(), QStringList({"250.5|0", "0|1"}));
    QCOMPARE(accepted.ListRow(0), QStringList({"O'BRIEN & SONS", "250.50", "Dr"}));
    const Shown again(desk_->database, ForClient{desk_->of});
    QCOMPARE(again.messages.Texts(), QStringList());
  }

  // A balance that was typed for a broker of whom the year before knows nothing is the only record
  // of it.
  void TypedBalanceOfANewBrokerOutlivesTheCarryForward() {
    PayLastYear();
    Shown shown(desk_->database, ForClient{desk_->of, {false}});
    shown.AddByKeyboard({"able", "70", "c"});
    shown.messages.WillAnswer(true);
    shown.Click("CmdImport");
    QCOMPARE(Amounts(), QStringList({"250.5|0", "70|1"}));
  }

 private:
  QStringList Balances() {
    return test::Rows(desk_->Connection(),
                      "Select Id,OpBal,Dr From BrOpBal Where Fyear='2011-12' Order By Id");
  }

  /// Of O'Brien, then of Able.
  QStringList Amounts() {
    return test::Rows(desk_->Connection(),
                      "Select OpBal,Dr From BrOpBal Where Fyear='2011-12' Order By BrId");
  }

  void PayLastYear() {
    desk_->Connection().Execute(
        "Insert Into BrPayment(Cid,Fyear,Id,BrId,TMode,Amt,PDate,PMode) "
        "Values(?,'2010-11',1,?,0,250.5,'31/03/2011',0)",
        desk_->client, desk_->broker);
  }

  BrokerId able_;
};

static const test::RegisterTest<FrmBrOpBalTest> kRegistered;
#include "FrmBrOpBalTest.moc"
