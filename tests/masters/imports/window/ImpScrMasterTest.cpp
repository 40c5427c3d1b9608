#include "masters/Records.h"
#include "masters/imports/ImportWindow.h"
#include "masters/imports/window/ImpScrMaster.h"
#include "support/Cases.h"
#include "support/DatabaseTest.h"
#include "support/TestMain.h"

using namespace quorvane;
using namespace quorvane::imports;
using Kind = test::RecordingMessages::Kind;
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
    QCOMPARE(shown.Cells("VSF"), QStringList({"500325|REL|RELIANCE|A|EQUITY|Unchanged",
                                              "500209|INFY|INFOSYS|B|PREFERENCE SHARE|New"}));
    QCOMPARE(shown.Counts(), "2 scrips: 1 new, 0 changed, 1 unchanged.");
    QCOMPARE(Scrips(), QStringList("3|500325"));
    shown.Show(1);
    QCOMPARE(shown.Cells("VSF").size(), 1);
    shown.Click("cmdUpdate");
    QCOMPARE(shown.messages.Texts(), QStringList("Update Successfully!"));
    QCOMPARE(Scrips(), QStringList({"3|500325", "4|500209"}));
    QVERIFY(!shown.Named<controls::ZENButton>("cmdUpdate")->isEnabled());
  }

  void BadFileIsRefusedAndChangesNothing_data() {
    const test::Cases<QString, QByteArray, QString> cases("name", "content", "text");
    cases.Add("none chosen", QString(), QByteArray(), "Select .XLS or .CSV File.");
    cases.Add("headings", "list.csv", QByteArray("A,B\n1,2\n"), "Invalid File.");
  }

  void BadFileIsRefusedAndChangesNothing() {
    QFETCH(const QString, name);
    QFETCH(const QByteArray, content);
    Window shown(*database_);
    if (!name.isEmpty()) {
      shown.Choose(name.toLatin1(), content);
    }
    shown.Click("CmdImport");
    QCOMPARE(shown.messages.said.size(), std::size_t{1});
    QTEST(shown.messages.LastText().section(QLatin1Char('\n'), 0, 0), "text");
    QCOMPARE(shown.messages.said.back().icon, controls::Icon::kCritical);
    QVERIFY(!shown.Named<controls::ZENButton>("cmdUpdate")->isEnabled());
  }

  void NewestFileIsFetched() {
    Window shown(*database_);
    shown.exchange.Answer(QStringLiteral("/mktlive/bhavcopy.asp"),
                          {.body = "<a href='/eq_csv.zip'>file</a>"});
    shown.exchange.Answer(QStringLiteral("/eq_csv.zip"), {.body = test::PriceSample("rates.zip")});
    shown.Click("CmdFetch");
    QVERIFY(shown.Named<controls::ZENButton>("cmdCancel")->isEnabled());
    QVERIFY(!shown.Named<controls::ZENButton>("CmdImport")->isEnabled());
    QTRY_COMPARE(shown.messages.Texts(),
                 QStringList("Successfully Completed.Please Update Record"));
    QCOMPARE(shown.Cells("VSF"),
             QStringList({"500325|REL|RELIANCE|A|EQUITY|Changed", "500209||INFOSYS|A|EQUITY|New"}));
    QVERIFY(shown.Named<controls::ZENButton>("CmdImport")->isEnabled());
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
