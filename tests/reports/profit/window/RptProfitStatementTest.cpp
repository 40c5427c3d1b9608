#include "reports/Sample.h"
#include "reports/ShownReport.h"
#include "reports/profit/window/RptProfitStatement.h"
#include "support/Cases.h"
#include "support/DatabaseTest.h"
#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/bills/BillBook.h"

#include <QFile>
#include <QProcess>

using namespace quorvane;
using namespace quorvane::profit;
using Kind = test::RecordingMessages::Kind;

namespace {

struct Shown : test::ShownReport<RptProfitStatement> {
  explicit Shown(test::TestDatabase& database, const QString& target = "RptProfitStatement",
                 const char* client = "ATH001")
      : ShownReport(database, target, client, 2011) {}

  const controls::GridModel& Scrips() const { return Named<controls::Grid>("VSS")->Model(); }

  /// The cells of the last line on the screen, after a report.
  QStringList Report() const {
    Click("CmdReport");
    return Screen().RowText(Screen().rowCount() - 1).split('\t');
  }
};

constexpr int kFirstGain = 9;

/// The sheets, and the amounts of the last line.
const QString kReadWorkbook = QStringLiteral(
    "import openpyxl, sys\n"
    "book = openpyxl.load_workbook(sys.argv[1])\n"
    "print(*book.sheetnames)\n"
    "last = [row for row in book.worksheets[0].values if any(row)][-1]\n"
    "print(*[f'{cell:.2f}' for cell in last if isinstance(cell, (int, float))])\n");

}  // namespace

class RptProfitStatementTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
  }

  void TargetDecidesTheReport_data() {
    const test::Cases<QString, QString, QString, bool> cases("target", "caption", "title",
                                                             "exports");
    cases.Add("profit", "RptProfitStatement", "Profit Statement RAGHAV MOHAN ATHALEKAR:2011-12",
              "Scriptwise Profitability Statement", false);
    cases.Add("gain", "rptcapitalgain", "Capital Gain Statement RAGHAV MOHAN ATHALEKAR:2011-12",
              "Capital Gain Statement", true);
  }

  void TargetDecidesTheReport() {
    QFETCH(QString, target);
    QFETCH(bool, exports);
    const Shown window(*database_, target);
    QTEST(window.window->windowTitle(), "caption");
    QCOMPARE(window.Named<QWidget>("FrmExp")->isVisible(), exports);
    QCOMPARE(window.Named<QLineEdit>("Text1_0")->text(), "01/04/2011");
    QCOMPARE(window.Named<QLineEdit>("Text1_1")->text(), "31/03/2012");
    QVERIFY(window.Named<QAbstractButton>("optF_2")->isChecked());
    window.Click("CmdReport");
    QTEST(window.Screen().Document().titles.first(), "title");
    QCOMPARE(window.messages.said.size(), std::size_t{2});
    QCOMPARE(window.messages.said[0].kind, Kind::kAsk);
    QCOMPARE(window.messages.said[1].kind, Kind::kInform);
  }

  void ScreenPaperAndFilesHaveTheSameGains() {
    Shown window(*database_, "RptCapitalGain");
    const QStringList net = window.Report();
    QCOMPARE(net.first(), "Net Total");
    window.Menu("mnupreview");
    window.Click("OptFormat_1");
    window.Menu("mnupreview");
    QCOMPARE(window.printed.size(), std::size_t{2});
    for (const reporting::ReportDocument& document : window.printed) {
      const reporting::Table& table = document.tables.front();
      QStringList gains;
      for (std::size_t i = kFirstGain; i < table.columns.size(); ++i) {
        gains.append(reporting::CellText(table.rows.back().cells[i], table.columns[i].mask));
      }
      QCOMPARE(gains, net.mid(kFirstGain));
    }
    QCOMPARE(window.printed[0].tables.front().columns.front().heading, "S.No");
    QCOMPARE(window.printed[1].tables.front().columns.front().heading, "Date");
  }

  void ChoicesChangeTheFigures_data() {
    const test::Cases<QString> cases("choice");
    for (const char* choice : {"optSTax_1", "optSTT_1", "Option2_1", "Option2_2", "ChkAverage"}) {
      cases.Add(choice, choice);
    }
  }

  void ChoicesChangeTheFigures() {
    QFETCH(QString, choice);
    const Shown window(*database_);
    const QStringList before = window.Report();
    window.Click(choice);
    const QStringList after = window.Report();
    QVERIFY2(before.mid(kFirstGain - 1) != after.mid(kFirstGain - 1), qPrintable(after.join(' ')));
  }

  void UnsoldQuantityIsLeftOutOnRequest() {
    Shown window(*database_);
    window.messages.WillAnswer(false);
    const QStringList without = window.Report();
    window.messages.WillAnswer(true);
    const QStringList with = window.Report();
    QVERIFY(without[3] != with[3]);
    QCOMPARE(without.mid(4), with.mid(4));
  }

  void NothingTickedBuildsNothing() {
    const Shown window(*database_);
    auto* scrips = window.Named<controls::Grid>("VSS");
    QVERIFY(scrips->Model().RowCount() > 5);
    scrips->Model().TickAll(false);
    window.Click("CmdReport");
    QCOMPARE(window.messages.Texts(), QStringList("Select Script Name!"));
    QCOMPARE(window.Screen().rowCount(), 0);
    window.Named<controls::Grid>("VSD")->Model().TickAll(false);
    window.Click("CmdReport");
    QCOMPARE(window.messages.LastText(), "Select Demat A/c!");
  }

  void KeysAloneTickOneScripAndReport() {
    const Shown window(*database_);
    auto* scrips = window.Named<controls::Grid>("VSS");
    scrips->Model().TickAll(false);
    scrips->setFocus();
    QTest::keyClick(scrips, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(scrips, Qt::Key_Space);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F5);
    QTRY_COMPARE(window.messages.LastText(), QStringLiteral("Report is Ready."));
    QCOMPARE(window.Screen().RowText(0).trimmed(), scrips->Model().Text(0, 1));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(window.printed.size(), std::size_t{1});
  }

  void ScripsFollowTheirSource() {
    const Shown window(*database_);
    const int of_client = window.Scrips().RowCount();
    window.Click("Option1_1");
    const int all = window.Scrips().RowCount();
    QVERIFY(all > of_client);
    window.Click("Option1_0");
    window.Click("optF_0");
    const int fo = window.Scrips().RowCount();
    QVERIFY(fo < of_client);
  }

  void ClientWithoutAnythingHasNoScrips() {
    const ClientId nobody = database_->AddClient("NOBODY");
    database_->AddAccount(nobody, "999");
    const Shown window(*database_, "RptProfitStatement", "NOBODY");
    QCOMPARE(window.Scrips().RowCount(), 0);
    window.Click("Option1_1");
    window.Click("CmdReport");
    QCOMPARE(window.messages.LastText(), "No Record Found.");
    window.Menu("mnuexcel");
    QVERIFY(window.opened.isEmpty());
  }

  void BillsWithoutAnAccountCountWhenEveryAccountIsTicked() {
    test::Desk books;
    bills::BillBook book(books.Connection(), books.of);
    records::Bill bought = books.NewBill({books.Purchase(10, 100)});
    bought.account = {};
    QVERIFY(!test::Save(book, bought));
    const auto lots =
        ledger::ReadLots(books.Connection(), ledger::LotScope::Of({books.of, AccountId{}}));
    records::Bill sold = books.NewBill({books.Sale(10, 120, lots.front().id)});
    sold.account = {};
    QVERIFY(!test::Save(book, sold));
    const Shown window(books.database, "RptProfitStatement", "C1");
    QVERIFY(window.Report().contains("200.00"));
    QStringList lines;
    for (int row = 0; row < window.Screen().rowCount(); ++row) {
      lines.append(window.Screen().RowText(row).simplified());
    }
    QVERIFY2(lines.contains("Without Demat A/c"), qPrintable(lines.join('\n')));
    window.Named<controls::Grid>("VSD")->Model().SetTicked(0, false);
    window.Click("CmdReport");
    QCOMPARE(window.messages.said.back().text, "No Record Found.");
  }

  void FilesAreWrittenAndOpened() {
    Shown window(*database_, "RptCapitalGain");
    window.Menu("mnuword");
    window.Click("CmdExpCapGain");
    const QString stem = window.folder.filePath(
        "Reports/Capital Gain Statement RAGHAV MOHAN ATHALEKAR 2011-12 New Format");
    QCOMPARE(window.opened, QStringList({stem + ".rtf", stem + ".xlsx"}));
    for (const QString& path : window.opened) {
      QVERIFY2(QFileInfo(path).size() > 1000, qPrintable(path));
    }
    window.opens = false;
    window.Menu("mnuword");
    QVERIFY(window.messages.LastText().contains(stem + ".rtf"));
  }

  void WorkbookIsTheTemplateFilled_data() {
    const test::Cases<QString, QString> cases("format", "sheet");
    cases.Add("summary", "OptFormat_0", "Summary");
    cases.Add("detail", "OptFormat_1", "Detail");
  }

  void WorkbookIsTheTemplateFilled() {
    QFETCH(QString, format);
    const Shown window(*database_, "RptCapitalGain");
    window.Click(format);
    window.Menu("mnupreview");
    window.Menu("mnuexcel");
    QCOMPARE(window.messages.Texts(), QStringList());
    QProcess reader;
    reader.start("/usr/bin/python3", {"-c", kReadWorkbook, window.opened.first()});
    QVERIFY(reader.waitForFinished());
    const QStringList lines =
        QString::fromUtf8(reader.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    QTEST(lines.value(0), "sheet");
    const reporting::Table& table = window.printed.front().tables.front();
    const reporting::Row& net = table.rows.back();
    QStringList amounts;
    for (std::size_t i = 1; i < net.cells.size(); ++i) {
      if (std::holds_alternative<double>(net.cells[i])) {
        amounts.append(reporting::CellText(net.cells[i], reporting::Mask::kAmount));
      }
    }
    QCOMPARE(lines.last(), amounts.join(' '));
  }

  void WorkbookNeedsItsTemplate() {
    Shown window(*database_);
    window.session.folders.data = window.folder.path();
    window.Menu("mnuexcel");
    QVERIFY(window.messages.LastText().contains("ProfitGainRpt.xlsx is not there"));
    QVERIFY(window.opened.isEmpty());
  }

  void SavingAsksForThePlace() {
    Shown window(*database_);
    window.Menu("mnupdf");
    QVERIFY(window.messages.said.empty());
    window.save_path = window.folder.filePath("mine.pdf");
    window.Menu("mnupdf");
    QFile file(window.save_path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.read(5) == "%PDF-");
    window.save_path = window.folder.filePath("none/mine.csv");
    window.Menu("mnucsv");
    QCOMPARE(window.messages.said.back().kind, Kind::kRefuse);
    QVERIFY(window.messages.LastText().startsWith("mnucsv_Click"));
  }

 private:
};

static const test::RegisterTest<RptProfitStatementTest> kRegistered;

#include "RptProfitStatementTest.moc"
