#include "masters/participants/window/FrmDepPart.h"
#include "support/ShownWindow.h"

using namespace quorvane;
using namespace quorvane::participants;

class FrmDepPartTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void cleanup() { test::Empty(**database_, {"DepPart", "DpIDs", "ClientActDet"}); }

  void KeyboardAloneAddsAParticipantWithItsDpIds() {
    const test::ShownWindow<FrmDepPart> shown(*database_);
    QTest::keyClick(shown.window, Qt::Key_N, Qt::ControlModifier);
    shown.Fill({"sanchayika ltd", "ground floor", "mumbai", "mah", "400001", "022", "55501",
                "98200", "55502", "Help@Sanchayika.example", "hemant", "manager", "c"});
    // The grid has a row to type into; Enter adds one after the last one that is filled, and leaves
    // the grid from an empty one.
    QVERIFY(shown.Named<QWidget>("VS")->hasFocus());
    shown.Fill({"in300001", "in300002"});
    shown.Press(Qt::Key_Return);
    QVERIFY(shown.Named<QWidget>("cmdUpdate")->hasFocus());
    shown.Press(Qt::Key_Return);
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(test::Rows(**database_, "Select * From DepPart"),
             QStringList("1|SANCHAYIKA LTD|GROUND FLOOR|MUMBAI|MAHARASHTRA|400001|022|55501|98200|"
                         "55502|Help@Sanchayika.example|HEMANT|MANAGER|1"));
    QCOMPARE(DpIds(), QStringList({"1|1|IN300001", "1|2|IN300002"}));
    QVERIFY(!shown->IsEditing());
  }

  void SavedDpIdsKeepTheirKeys() {
    AddParticipants();
    (*database_)->Execute("Insert Into ClientActDet Values(1,1,3,8,'1001')");
    const test::ShownWindow<FrmDepPart> shown(*database_);
    shown.Retype(3, "Text1_0", "renamed");
    auto* grid = shown.Named<controls::Grid>("VS");
    grid->SelectId(4);
    shown.Click("CmdDelRow");
    shown.Click("CmdAddRow");
    shown.Type("in777");
    shown.Click("cmdUpdate");
    QCOMPARE(test::Rows(**database_, "Select Id,Name From DepPart Order By Id"),
             QStringList({"2|OTHER", "3|RENAMED"}));
    QCOMPARE(DpIds(), QStringList({"2|5|12000", "3|8|IN002", "3|9|IN777"}));
    QCOMPARE(test::Rows(**database_, "Select DPID From ClientActDet"), QStringList("8"));
  }

  void CancelBringsTheStoredDpIdsBack() {
    AddParticipants();
    const QStringList before = DpIds();
    const test::ShownWindow<FrmDepPart> shown(*database_);
    shown->List().SelectId(3);
    shown.Click("cmdModify");
    auto* grid = shown.Named<controls::Grid>("VS");
    grid->SelectId(4);
    shown.Click("CmdDelRow");
    shown.Click("cmdCancel");
    QCOMPARE(grid->Model().RowCount(), 2);
    QCOMPARE(DpIds(), before);
  }

  void DeleteIsAskedForAndLeavesAccountsAlone() {
    AddParticipants();
    (*database_)->Execute("Insert Into ClientActDet Values(1,1,3,8,'1001')");
    test::ShownWindow<FrmDepPart> shown(*database_);
    shown->List().SelectId(3);
    shown.messages.WillAnswer(true);
    shown.Click("CmdDelete");
    QCOMPARE(shown.messages.Texts(), QStringList("Are You Sure, You want to Delete this Record?"));
    QCOMPARE(shown.messages.said.back().icon, controls::Icon::kCritical);
    QCOMPARE(shown.messages.said.back().preset, controls::Answer::kNo);
    QCOMPARE(test::Rows(**database_, "Select Id From DepPart Order By Id"), QStringList("2"));
    QCOMPARE(test::Rows(**database_, "Select Distinct(DepId) From DpIDs Order By DepId"),
             QStringList("2"));
    QCOMPARE(test::Rows(**database_, "Select DMATAC,DPID From ClientActDet"), QStringList("3|8"));
  }

 private:
  QStringList DpIds() {
    return test::Rows(**database_, "Select DepId,id,DPID From DpIDs Order By DepId,id");
  }

  void AddParticipants() {
    test::TestDatabase& database = *database_;
    database->Execute(
        "Insert Into DepPart(Id,Name,City,PIN,STD,Depository) "
        "Values(3,'SANCHAYIKA','NASHIK','422001','0253',0),(2,'OTHER','PUNE','411001','020',1)");
    database->Execute("Insert Into DpIDs Values(3,4,'IN001'),(3,8,'IN002'),(2,5,'12000')");
  }
};

static const test::RegisterTest<FrmDepPartTest> kRegistered;
#include "FrmDepPartTest.moc"
