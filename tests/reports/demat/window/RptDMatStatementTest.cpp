#include "reports/Sample.h"
#include "reports/ShownReport.h"
#include "reports/demat/window/RptDMatStatement.h"

using namespace quorvane;
using namespace quorvane::demat;
using Shown = test::ShownReport<RptDMatStatement>;

class RptDMatStatementTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
  }

  void TargetDecidesTheReport_data() {
    const test::Table<QString, QString, QString> row;
    row("statement", "RPTDMATSTATEMENT", "Demat A/c Statement RAGHAV MOHAN ATHALEKAR:2011-12",
        "Demat A/c Statement (From 01/04/2011 To 31/03/2012)");
    row("transactions", "rpttransaction", "Transaction Report RAGHAV MOHAN ATHALEKAR:2011-12",
        "TRANSACTION REPORT");
  }
  void TargetDecidesTheReport() {
    const auto [target, caption, title] = test::Table<QString, QString, QString>::Row();
    const Shown shown(*database_, target, "ATH001", 2011);
    QCOMPARE(shown.window->windowTitle(), caption);
    shown.Click("CmdReport");
    QCOMPARE(shown.Screen().Document().titles.first(), title);
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(shown.Named<QWidget>("FTransaction")->isVisible(),
             target.contains("transaction", Qt::CaseInsensitive));
    QVERIFY(!shown.Named<QWidget>("FDemat")->isVisible());
  }

  void ReportIsRefusedInOrder() {
    const Shown shown(*database_, "RptDMatStatement", "ATH001", 2011);
    shown.Named<controls::Grid>("VSF")->Model().TickAll(false);
    shown.Enter("Text1_0", "");
    shown.Enter("Text1_1", "");
    shown.Click("CmdReport");
    shown.Enter("Text1_0", "01/05/2011");
    shown.Click("CmdReport");
    shown.Enter("Text1_1", "30/04/2011");
    shown.Click("CmdReport");
    shown.Enter("Text1_1", "31/05/2011");
    shown.Click("CmdReport");
    QCOMPARE(shown.messages.Texts(),
             (QStringList{"Enter From Date.", "Enter To Date.",
                          "From Date Can't be Greater than To Date.", "Select Demat A/c!"}));
    QCOMPARE(shown.Screen().rowCount(), 0);
  }

  void DetailedReportIsAccountByAccountOrOfAllTogether() {
    const Shown shown(*database_, "RptTransaction", "ATH001", 2011);
    const auto& accounts = shown.Named<controls::Grid>("VSF")->Model();
    shown.Click("OptTransaction_1");
    QVERIFY(shown.Named<QWidget>("FDemat")->isVisible());
    QVERIFY(shown.Named<QAbstractButton>("OptDemat_0")->isChecked());
    shown.Named<controls::Grid>("VSF")->Model().SetTicked(0, false);
    shown.Click("CmdReport");
    const reporting::ReportDocument one = shown.Screen().Document();
    QCOMPARE(one.titles.first(), "EQUITY TRANSACTION REPORT");
    QCOMPARE(one.tables.front().titles.first(),
             QStringLiteral("Demat A/c No. ") + accounts.Text(1, 1));
    shown.Click("OptDemat_1");
    QVERIFY(accounts.AllTicked());
    shown.Click("CmdReport");
    QVERIFY(shown.Screen().Document().titles.contains("All Demat A/c"));
    QVERIFY(shown.Screen().rowCount() > static_cast<int>(reporting::RowCount(one)));
  }

  void WordLiesBesideTheTemplatesUnderBothNames() {
    const Shown shown(*database_, "RptTransaction", "ATH001", 2011);
    shown.Menu("mnuword");
    QCOMPARE(shown.messages.Texts(), QStringList());
    const QString document = shown.Session().folders.data + "/TransactionRpt.Doc";
    QCOMPARE(shown.opened, QStringList{document});
    const QByteArray text = test::ReadFile(document);
    QVERIFY(text.startsWith("{\\rtf") && text.contains("Total Payable"));
    QCOMPARE(test::ReadFile(shown.Session().folders.data + "/TransactionRpt.rtf"), text);
  }

  void WorkbookNeedsItsTemplate_data() {
    const test::Table<QString, QString> row;
    row("summarized", "OptTransaction_0", "/TransRpt.xlsx");
    row("detailed", "OptTransaction_1", "/TransRptNew.xlsx");
  }
  void WorkbookNeedsItsTemplate() {
    const auto [layout, file] = test::Table<QString, QString>::Row();
    const Shown shown(*database_, "RptTransaction", "ATH001", 2011);
    shown.Click(layout);
    shown.Menu("mnuexcel");
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(shown.opened.size(), 1);
    QVERIFY(QFileInfo(shown.opened.first()).size() > 5000);
    const QString path = shown.Session().folders.data + file;
    QVERIFY(QFile::remove(path));
    shown.Menu("mnuexcel");
    QCOMPARE(shown.opened.size(), 1);
    QVERIFY2(shown.messages.LastText().contains(path), qPrintable(shown.messages.LastText()));
  }
};

static const test::RegisterTest<RptDMatStatementTest> kRegistered;
#include "RptDMatStatementTest.moc"
