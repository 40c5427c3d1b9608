#include "reports/Sample.h"
#include "reports/ShownReport.h"
#include "reports/demat/window/RptDMatStatement.h"
#include "support/Cases.h"
#include "support/DatabaseTest.h"
#include "support/TestMain.h"

#include <QFileInfo>

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
    const test::Cases<QString, QString, QString> cases("target", "caption", "title");
    cases.Add("statement", "RPTDMATSTATEMENT", "Demat A/c Statement RAGHAV MOHAN ATHALEKAR:2011-12",
              "Demat A/c Statement (From 01/04/2011 To 31/03/2012)");
    cases.Add("transactions", "rpttransaction", "Transaction Report RAGHAV MOHAN ATHALEKAR:2011-12",
              "TRANSACTION REPORT");
  }

  void TargetDecidesTheReport() {
    QFETCH(QString, target);
    const Shown shown(*database_, target, "ATH001", 2011);
    QTEST(shown.window->windowTitle(), "caption");
    shown.Click("CmdReport");
    QTEST(shown.Screen().Document().titles.first(), "title");
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
    const QString document = shown.session.folders.data + "/TransactionRpt.Doc";
    QCOMPARE(shown.opened, QStringList{document});
    QFile first(document);
    QFile second(shown.session.folders.data + "/TransactionRpt.rtf");
    QVERIFY(first.open(QIODevice::ReadOnly) && second.open(QIODevice::ReadOnly));
    const QByteArray text = first.readAll();
    QVERIFY(text.startsWith("{\\rtf") && text.contains("Total Payable"));
    QCOMPARE(second.readAll(), text);
  }

  void WorkbookNeedsItsTemplate_data() {
    const test::Cases<QString, QString> cases("layout", "file");
    cases.Add("summarized", "OptTransaction_0", "/TransRpt.xlsx");
    cases.Add("detailed", "OptTransaction_1", "/TransRptNew.xlsx");
  }

  void WorkbookNeedsItsTemplate() {
    QFETCH(QString, layout);
    QFETCH(QString, file);
    const Shown shown(*database_, "RptTransaction", "ATH001", 2011);
    shown.Click(layout);
    shown.Menu("mnuexcel");
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(shown.opened.size(), 1);
    QVERIFY(QFileInfo(shown.opened.first()).size() > 5000);
    const QString path = shown.session.folders.data + file;
    QVERIFY(QFile::remove(path));
    shown.Menu("mnuexcel");
    QCOMPARE(shown.opened.size(), 1);
    QVERIFY2(shown.messages.LastText().contains(path), qPrintable(shown.messages.LastText()));
  }

 private:
};

static const test::RegisterTest<RptDMatStatementTest> kRegistered;

#include "RptDMatStatementTest.moc"
