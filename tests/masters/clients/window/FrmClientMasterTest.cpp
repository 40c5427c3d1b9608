#include "masters/clients/window/ClientWindow.h"

using namespace quorvane;
using namespace quorvane::clients;
using controls::ComboBox;
using controls::DateBox;
using controls::Grid;
using controls::TextBox;
using test::Rows;

class FrmClientMasterTest : public test::ClientWindow {
  Q_OBJECT

 private Q_SLOTS:
  void ClientWithTwoAccountsIsEnteredByKeyboardAlone() {
    Open();
    QTest::keyClick(window_, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(Focused(), QString("Text1_0"));
    Type({"c1", "grp", "ravi o'brien", "1 main road", "pune", "mah", "411001", "020", "555", "98",
          "77", "Ravi@x.Example", "1.2.60", "abcpk1234k", "ma", "si", ""});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(messages_->Texts(), QStringList());
    QCOMPARE(Focused(), QString("VS"));
    Type({"fir", "IN300002", "1001", "sec", "", "1002"});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(messages_->Texts(), QStringList());
    QCOMPARE(Rows(Db(), "Select * From ClientInfo"),
             QStringList("1|C1|GRP|RAVI O'BRIEN|1 MAIN ROAD|PUNE|MAHARASHTRA|411001|020|555|98|77|"
                         "Ravi@x.Example|01/02/1960|ABCPK1234K|0|0|"));
    QCOMPARE(Rows(Db(), "Select * From ClientActDet Order By id"),
             QStringList({"1|1|1|12|1001", "1|2|2|21|1002"}));
    QVERIFY(!window_->IsEditing());
    QCOMPARE(window_->List().CurrentId(), 1);
    QCOMPARE(Box(0)->text(), QString("C1"));
  }

  void ModifyingKeepsTheIdsOfTheAccounts() {
    AddClient(7, "OLD");
    AddAccount(7, 5, 1, 11, "A");
    AddAccount(7, 9, 2, 21, "B");
    AddAccount(8, 12, 2, 21, "OF ANOTHER CLIENT");
    Open();
    Modify(7);
    Grid& accounts = *window_->findChild<Grid*>("VS");
    QCOMPARE(Accounts(), QStringList({"FIRST BANK|IN300001|A", "SECOND HOUSE|12099900|B"}));
    accounts.SelectRow(0);
    Click("CmdDelRow");
    QVERIFY(accounts.Model().setData(accounts.Model().index(0, 2), "B2"));
    Click("CmdAddRow");
    Type({"first", "IN300001", "C"});
    Click("cmdUpdate");
    QCOMPARE(messages_->Texts(), QStringList());
    QCOMPARE(Rows(Db(), "Select * From ClientActDet Order By id"),
             QStringList({"7|9|2|21|B2", "8|12|2|21|OF ANOTHER CLIENT", "7|13|1|11|C"}));
  }

  void AccountThatRecordsNameIsRemovedOnlyWhenAsked() {
    AddClient(7, "OLD");
    AddAccount(7, 5, 1, 11, "A");
    AddAccount(7, 9, 2, 21, "B");
    Db().Execute("Insert Into SPMaster(Cid,AcId) Values(7,5),(7,5)");
    Db().Execute("Insert Into Stock(Cid,AcId) Values(7,5)");
    Open();
    Modify(7);
    Grid& accounts = *window_->findChild<Grid*>("VS");
    accounts.SelectId(5);
    Click("CmdDelRow");
    QVERIFY(messages_->LastText().startsWith(
        "2 bills, 0 opening rows, 0 transfers and 1 lots name this Demat A/c."));
    QCOMPARE(accounts.Model().RowCount(), 2);
    messages_->WillAnswer(true);
    Click("CmdDelRow");
    QCOMPARE(accounts.Model().RowCount(), 1);
    Db().Execute("Delete From SPMaster");
    Db().Execute("Delete From Stock");
  }

  void DeletedClientTakesItsAccountsAlong() {
    AddClient(7, "GOES");
    AddAccount(7, 5, 1, 11, "A");
    AddClient(8, "STAYS");
    Open();
    window_->List().SelectId(7);
    messages_->WillAnswer(true);
    Click("CmdDelete");
    QCOMPARE(messages_->Texts(), QStringList("Are You Sure, You want to Delete this Client?\n"
                                             "All Related Data will be Deleted."));
    QCOMPARE(Rows(Db(), "Select Code From ClientInfo"), QStringList("STAYS"));
    QCOMPARE(Rows(Db(), "Select ACNo From ClientActDet"), QStringList());
    QCOMPARE(window_->List().Model().RowCount(), 1);
  }

  void OlderRecordIsChangedAlthoughItsValuesAreNoProperOnes() {
    AddClient(7, "OLD");
    AddClient(8, "MASK");
    AddAccount(7, 5, 1, 11, "A");
    AddAccount(8, 6, 1, 11, "B");
    Db().Execute("Update ClientInfo Set DOB='00/00/0000',PAN='A1',SignDoc='lost.pdf' Where Id=7");
    Db().Execute("Update ClientInfo Set DOB='__/__/____' Where Id=8");
    Open();
    for (const int id : {7, 8}) {
      Modify(id);
      for (const char* box : {"MaskEdBox1", "Text1_11", "Text1_2"}) {
        window_->findChild<TextBox*>(box)->setFocus(Qt::TabFocusReason);
      }
      Type({"renamed"});
      Click("cmdUpdate");
      QCOMPARE(messages_->Texts(), QStringList());
    }
    QCOMPARE(Rows(Db(), "Select Name,DOB,PAN,SignDoc From ClientInfo Order By Id"),
             QStringList({"RENAMED|00/00/0000|A1|lost.pdf", "RENAMED|||"}));
  }

  // The code is told before the date, although the date stands in the form.
  void RulesAreToldInTheirOrder() {
    AddClient(3, "TAKEN");
    AddClient(7, "OLD");
    Db().Execute("Update ClientInfo Set DOB='00/00/0000' Where Id=7");
    Open();
    Modify(7);
    window_->findChild<DateBox*>("MaskEdBox1")->setText("31/02/1970");
    Box(0)->setText("TAKEN");
    Click("cmdUpdate");
    QCOMPARE(messages_->LastText(), "Enter Demat A/c Details.");
    Type({"fir", "IN300002", "1001"});
    Click("cmdUpdate");
    QCOMPARE(messages_->LastText(), "Client Code Already Exists.");
    Box(0)->setText("FREE");
    Click("cmdUpdate");
    QCOMPARE(messages_->LastText(), "Enter Proper Date.");
    QCOMPARE(Focused(), QString("MaskEdBox1"));
  }

  void ImproperPanLeadsBackAndAnOddOneIsWarnedOfOnce() {
    Open();
    Click("cmdAdd");
    Box(11)->setFocus();
    Type({"12345"});
    QCOMPARE(messages_->Texts(), QStringList("Enter Proper PAN."));
    QCOMPARE(Focused(), QString("Text1_11"));
    Type({"abczk1234k"});
    QCOMPARE(messages_->said.size(), std::size_t{2});
    QCOMPARE(messages_->LastText(), PanWarning("ABCZK1234K"));
    QVERIFY(!messages_->LastText().isEmpty());
    Box(11)->setFocus();
    Type({""});
    QCOMPARE(messages_->said.size(), std::size_t{2});
  }

  void BoxesCompleteFromStoredClients() {
    AddClient(7, "C7");
    Db().Execute(
        "Update ClientInfo Set GCode='FAMILY',City='PUNE',PIN='411001',STD='020' Where Id=7");
    Open();
    Click("cmdAdd");
    Type({"c", "f", "name", "", "p", "g", "4", "0"});
    QCOMPARE(Box(1)->text(), QString("FAMILY"));
    QCOMPARE(Box(4)->text(), QString("PUNE"));
    QCOMPARE(window_->findChild<ComboBox*>("Combo1")->currentText(), QString("GOA"));
    QCOMPARE(Box(5)->text(), QString("411001"));
    QCOMPARE(Box(6)->text(), QString("020"));
    Box(4)->setFocus();
    Type({"delhi"});
    Box(5)->setFocus();
    Type({"4"});
    QCOMPARE(Box(5)->text(), QString("4"));
  }

  void DpIdsFollowTheParticipantOfTheirRow() {
    Open();
    Click("cmdAdd");
    Click("CmdAddRow");
    Grid& accounts = *window_->findChild<Grid*>("VS");
    Type({"sec"});
    QCOMPARE(Accounts(), QStringList("SECOND HOUSE|12099900|"));
    QVERIFY(accounts.Model().setData(accounts.Model().index(0, 0), 1));
    QCOMPARE(Accounts(), QStringList("FIRST BANK||"));
    QVERIFY(accounts.Model().ChoicesOf(0, 1).Contains(12));
    QVERIFY(!accounts.Model().ChoicesOf(0, 1).Contains(21));
  }
};

static const test::RegisterTest<FrmClientMasterTest> kRegistered;
#include "FrmClientMasterTest.moc"
