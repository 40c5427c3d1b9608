#include "masters/imports/ImportWindow.h"
#include "masters/imports/window/ImpScrMaster.h"

using namespace quorvane;
using namespace quorvane::imports;
using Window = test::ImportWindow<ImpScrMaster>;

class ImpScrMasterTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    test::Empty(**database_, {"Script", "ScriptType", "ScriptClass"});
    (*database_)->Execute("Insert Into ScriptType Values(1,'EQUITY')");
    (*database_)->Execute("Insert Into ScriptClass Values(1,'A')");
    (*database_)
        ->Execute(
            "Insert Into Script(Id,Code,Name,Type,ScrCls,NCode) "
            "Values(3,'500325','RELIANCE',1,1,'REL')");
  }

  void FileIsReviewedThenSaved() {
    Window shown(*database_);
    QVERIFY(!shown.Named<controls::ZENButton>("cmdUpdate")->isEnabled());
    shown.Choose("list.csv",
                 "SC_BCode,SC_NCode,SC_Name,SC_Class,SC_Type\n500325,REL,RELIANCE,A,Q\n"
                 "500209,INFY,INFOSYS,B,P\n");
    shown.Click("CmdImport");
    QCOMPARE(shown.messages.Texts(), QStringList());
    QVERIFY(shown.asked_folder.endsWith(QLatin1String("/Data")));
    QCOMPARE(shown.RowsOf("VSF"), QStringList({"500325|REL|RELIANCE|A|EQUITY|Unchanged",
                                               "500209|INFY|INFOSYS|B|PREFERENCE SHARE|New"}));
    QCOMPARE(shown.Counts(), "2 scrips: 1 new, 0 changed, 1 unchanged.");
    QCOMPARE(Scrips(), QStringList("3|500325"));
    shown.Show(1);
    QCOMPARE(shown.RowsOf("VSF").size(), 1);
    shown.Click("cmdUpdate");
    QCOMPARE(shown.messages.Texts(), QStringList("Update Successfully!"));
    QCOMPARE(Scrips(), QStringList({"3|500325", "4|500209"}));
    QVERIFY(!shown.Named<controls::ZENButton>("cmdUpdate")->isEnabled());
  }

  void FailedFetchIsToldAndACancelledOneIsNot() {
    Window shown(*database_);
    shown.Click("CmdFetch");
    QTRY_COMPARE(shown.messages.Texts(), QStringList("Server Problem. Please Try Again."));
    shown.exchange.Answer(QStringLiteral("/mktlive/bhavcopy.asp"),
                          {.manner = test::LocalExchange::Manner::kSilent});
    shown.Click("CmdFetch");
    QTRY_COMPARE(shown.exchange.asked.size(), 2);
    shown.Click("cmdCancel");
    QVERIFY(shown.Named<controls::ZENButton>("CmdFetch")->isEnabled());
    QTest::qWait(50);
    QCOMPARE(shown.messages.said.size(), std::size_t{1});
  }

 private:
  QStringList Scrips() { return test::Rows(**database_, "Select Id,Code From Script Order By Id"); }
};

static const test::RegisterTest<ImpScrMasterTest> kRegistered;
#include "ImpScrMasterTest.moc"
