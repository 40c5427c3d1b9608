#include "masters/scrips/window/FrmScript.h"
#include "support/ShownWindow.h"

using namespace quorvane;
using namespace quorvane::scrips;

class FrmScriptTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    test::Empty(**database_, {"Script", "ScriptType", "ScriptClass", "SPMaster", "SPTrans"});
    test::TestDatabase& database = *database_;
    database->Execute("Insert Into ScriptType Values(1,'EQUITY'),(2,'BOND')");
    database->Execute("Insert Into ScriptClass Values(5,'B'),(6,'A')");
    database->Execute(
        "Insert Into Script(Id,Code,Name,Type,ScrCls,NCode) "
        "Values(3,'500325','RELIANCE',1,6,'REL'),(8,'500209','INFOSYS',2,5,'')");
  }

  void KeyboardAloneAddsAScrip() {
    const test::ShownWindow<FrmScript> shown(*database_);
    shown.AddByKeyboard({"500010", "hdfc & 'co'", "hdfc", "bo", "a"});
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Scrips().back(), "9|500010|HDFC & 'CO'|2|6|HDFC");
    QCOMPARE(shown->List().CurrentId(), 9);
  }

  void NewTypeCanBeChosenAtOnceAndTheChoiceIsKept() {
    const test::ShownWindow<FrmScript> shown(*database_);
    shown->List().SelectId(3);
    shown.Click("cmdModify");
    (*database_)->Execute("Insert Into ScriptType Values(7,'WARRANT')");
    auto* combo = shown.Named<controls::ComboBox>("Combo1");
    combo->setFocus(Qt::TabFocusReason);
    QCOMPARE(combo->currentText(), "EQUITY");
    shown.Type("wa");
    shown.Click("cmdUpdate");
    QCOMPARE(Scrips().front(), "3|500325|RELIANCE|7|6|REL");
    QCOMPARE(shown.ListRow(1).at(3), "WARRANT");
  }

  void ListShowsWhatOthersSavedWhenTheWindowIsActivated() {
    const ScripId first = database_->AddScrip("A1", "ALPHA");
    const test::ShownWindow<FrmScript> shown(*database_);
    shown->List().SelectId(first.value);
    const int before = shown->List().Model().RowCount();
    database_->AddScrip("B2", "BETA");
    QTest::qWait(400);
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    QApplication::setActiveWindow(shown.window);
    QTRY_COMPARE(shown->List().Model().RowCount(), before + 1);
    QCOMPARE(shown->List().CurrentId(), first.value);
    // Not while a record is edited.
    shown.Click("cmdModify");
    database_->AddScrip("C3", "GAMMA");
    QTest::qWait(400);
    QApplication::setActiveWindow(&other);
    QApplication::setActiveWindow(shown.window);
    QTest::qWait(50);
    QCOMPARE(shown->List().Model().RowCount(), before + 1);
  }

  void DeleteIsAskedForWithNoAsPreset() {
    test::ShownWindow<FrmScript> shown(*database_);
    shown->List().SelectId(3);
    shown.messages.WillAnswer(true);
    shown.Click("CmdDelete");
    QCOMPARE(shown.messages.Texts(), QStringList("Are You Sure, You want to Delete this Record?\n"
                                                 "All Related Data Will be Deleted."));
    QCOMPARE(shown.messages.said.back().icon, controls::Icon::kCritical);
    QCOMPARE(shown.messages.said.back().preset, controls::Answer::kNo);
    QCOMPARE(test::Rows(**database_, "Select Id From Script Order By Id"), QStringList("8"));
  }

 private:
  QStringList Scrips() {
    return test::Rows(**database_, "Select Id,Code,Name,Type,ScrCls,NCode From Script Order By Id");
  }
};

static const test::RegisterTest<FrmScriptTest> kRegistered;
#include "FrmScriptTest.moc"
