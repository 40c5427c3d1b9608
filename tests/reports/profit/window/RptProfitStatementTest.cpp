#include "masters/ShownWindow.h"
#include "portfolio/Import.h"
#include "reports/profit/window/RptProfitStatement.h"
#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/bills/BillBook.h"

#include <QAction>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace quorvane;
using namespace quorvane::profit;
using reporting::ReportGridView;
using Kind = test::RecordingMessages::Kind;

namespace {

/// The window over the sample portfolio, with what leaves it written down.
struct Shown {
  explicit Shown(test::TestDatabase& database, const QString& target = "RptProfitStatement",
                 const char* client = "ATH001") {
    session.connection = std::make_unique<database::Connection>(database.Settings());
    session.folders = app::Folders::At(folder.path());
    session.folders.data = QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped");
    const lookups::Directory directory(*session.connection);
    session.current = ClientYear{directory.FindClient(client)->id, text::FinancialYear(2011)};
    session.current_client_name = "RAGHAV";
    session.target = target;
    desk.open_file = [this](const QString& path) {
      opened.append(path);
      return opens;
    };
    desk.ask_save_path = [this](QWidget*, const QString&) { return save_path; };
    desk.show_report = [this](const reporting::ReportDocument& document, QWidget*) {
      shown.push_back(document);
    };
    window = std::make_unique<RptProfitStatement>(desk);
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window.get())) {
      throw std::runtime_error("the window does not become active");
    }
  }

  template <class Control>
  Control* Named(const QString& name) const {
    return window->findChild<Control*>(name);
  }
  void Click(const QString& button) const { Named<QAbstractButton>(button)->click(); }
  void Menu(const QString& action) const { Named<QAction>(action)->trigger(); }
  const reporting::ReportModel& Screen() const { return Named<ReportGridView>("VS")->Model(); }
  const controls::GridModel& Scrips() const { return Named<controls::Grid>("VSS")->Model(); }

  /// The cells of the last line on the screen.
  QStringList NetTotal() const { return Screen().RowText(Screen().rowCount() - 1).split('\t'); }

  QStringList Report() const {
    Click("CmdReport");
    return NetTotal();
  }

  QTemporaryDir folder;
  app::Session session;
  test::RecordingMessages messages;
  controls::Desk desk{session, messages, [] { return *text::MakeDate(15, 11, 2011); }};
  QStringList opened;
  bool opens = true;
  QString save_path;
  std::vector<reporting::ReportDocument> shown;
  std::unique_ptr<RptProfitStatement> window;
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

class RptProfitStatementTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_ = std::make_unique<test::TestDatabase>();
    Progress progress;
    const auto result = portfolio::ImportPortfolio(
        **database_, QStringLiteral(QUORVANE_SOURCE_DIR "/data/sample"), false, progress);
    QVERIFY(result.errors.empty());
  }
  void cleanupTestCase() { database_.reset(); }

  void TargetDecidesTheReport_data() {
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("exports");
    QTest::addRow("profit") << "RptProfitStatement"
                            << "Profit Statement RAGHAV:2011-12"
                            << "Scriptwise Profitability Statement" << false;
    QTest::addRow("gain") << "rptcapitalgain"
                          << "Capital Gain Statement RAGHAV:2011-12"
                          << "Capital Gain Statement" << true;
  }

  void TargetDecidesTheReport() {
    QFETCH(QString, target);
    QFETCH(bool, exports);
    const Shown window(*database_, target);
    QTEST(window.window->windowTitle(), "caption");
    QCOMPARE(window.Named<QWidget>("FrmExp")->isVisible(), exports);
    QCOMPARE(window.Named<QLineEdit>("Text1_0")->text(), QStringLiteral("01/04/2011"));
    QCOMPARE(window.Named<QLineEdit>("Text1_1")->text(), QStringLiteral("31/03/2012"));
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
    QCOMPARE(net.first(), QStringLiteral("Net Total"));
    window.Menu("mnupreview");
    window.Click("OptFormat_1");
    window.Menu("mnupreview");
    QCOMPARE(window.shown.size(), std::size_t{2});
    for (const reporting::ReportDocument& document : window.shown) {
      const reporting::Table& table = document.tables.front();
      QStringList gains;
      for (std::size_t i = kFirstGain; i < table.columns.size(); ++i) {
        gains.append(reporting::CellText(table.rows.back().cells[i], table.columns[i].mask));
      }
      QCOMPARE(gains, net.mid(kFirstGain));
    }
    QCOMPARE(window.shown[0].tables.front().columns.front().heading, QStringLiteral("S.No"));
    QCOMPARE(window.shown[1].tables.front().columns.front().heading, QStringLiteral("Date"));
  }

  void ChoicesChangeTheFigures_data() {
    QTest::addColumn<QString>("choice");
    for (const char* choice : {"optSTax_1", "optSTT_1", "Option2_1", "Option2_2", "ChkAverage"}) {
      QTest::addRow("%s", choice) << choice;
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

  void KindsOfGainAddUpToBoth() {
    const Shown window(*database_);
    const QStringList both = window.Report();
    window.Click("Option2_1");
    const QStringList others = window.Report();
    window.Click("Option2_2");
    const QStringList speculation = window.Report();
    QCOMPARE(others[kFirstGain], both[kFirstGain]);
    QCOMPARE(others[kFirstGain + 1], both[kFirstGain + 1]);
    QCOMPARE(speculation[kFirstGain + 2], both[kFirstGain + 2]);
    QCOMPARE(speculation[kFirstGain], QStringLiteral("0.00"));
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
    QCOMPARE(window.messages.LastText(), QStringLiteral("Select Demat A/c!"));
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
    QCOMPARE(window.shown.size(), std::size_t{1});
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
    QCOMPARE(window.messages.LastText(), QStringLiteral("No Record Found."));
    window.Menu("mnuexcel");
    QVERIFY(window.opened.isEmpty());
  }

  void PeriodIsCheckedInOrder() {
    const Shown window(*database_);
    auto* from = window.Named<QLineEdit>("Text1_0");
    auto* to = window.Named<QLineEdit>("Text1_1");
    from->clear();
    to->clear();
    window.Click("CmdReport");
    from->setText("02/04/2011");
    window.Click("CmdReport");
    to->setText("01/04/2011");
    window.Click("CmdReport");
    QCOMPARE(window.messages.Texts(), QStringList({"Enter From Date.", "Enter To Date.",
                                                   "From Date Can't be Greater than To Date."}));
    QVERIFY(from->hasFocus());
  }

  void PeriodLiesWithinTheYear_data() {
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("date");
    QTest::addRow("before") << "Text1_0"
                            << "31/03/2011";
    QTest::addRow("after") << "Text1_1"
                           << "01/04/2012";
  }

  void PeriodLiesWithinTheYear() {
    QFETCH(QString, box);
    const Shown window(*database_);
    QFETCH(QString, date);
    window.Named<QLineEdit>(box)->setText(date);
    window.Click("CmdReport");
    QCOMPARE(window.messages.said.size(), std::size_t{1});
    QCOMPARE(window.messages.said.back().text,
             QStringLiteral("The date lies outside the financial year 2011-12."));
    QCOMPARE(window.Screen().rowCount(), 0);
  }

  void BillsWithoutAnAccountCountWhenEveryAccountIsTicked() {
    test::Desk books;
    bills::BillBook book(books.Connection(), books.of);
    records::Bill bought = books.NewBill({books.Purchase(10, 100)});
    bought.account = {};
    QVERIFY(!book.Save(bought));
    const auto lots =
        ledger::ReadLots(books.Connection(), ledger::LotScope::Of({books.of, AccountId{}}));
    records::Bill sold = books.NewBill({books.Sale(10, 120, lots.front().id)});
    sold.account = {};
    QVERIFY(!book.Save(sold));
    const Shown window(books.database, "RptProfitStatement", "C1");
    QVERIFY(window.Report().contains("200.00"));
    QStringList lines;
    for (int row = 0; row < window.Screen().rowCount(); ++row) {
      lines.append(window.Screen().RowText(row).simplified());
    }
    QVERIFY2(lines.contains("Without Demat A/c"), qPrintable(lines.join('\n')));
    window.Named<controls::Grid>("VSD")->Model().SetTicked(0, false);
    window.Click("CmdReport");
    QCOMPARE(window.messages.said.back().text, QStringLiteral("No Record Found."));
  }

  void FilesAreWrittenAndOpened() {
    Shown window(*database_, "RptCapitalGain");
    window.Menu("mnuword");
    window.Click("CmdExpCapGain");
    const QString stem =
        window.folder.filePath("Reports/Capital Gain Statement RAGHAV 2011-12 New Format");
    QCOMPARE(window.opened, QStringList({stem + ".rtf", stem + ".xlsx"}));
    for (const QString& path : window.opened) {
      QVERIFY2(QFileInfo(path).size() > 1000, qPrintable(path));
    }
    window.opens = false;
    window.Menu("mnuword");
    QVERIFY(window.messages.LastText().contains(stem + ".rtf"));
  }

  void WorkbookIsTheTemplateFilled_data() {
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("sheet");
    QTest::addRow("summary") << "OptFormat_0"
                             << "Summary";
    QTest::addRow("detail") << "OptFormat_1"
                            << "Detail";
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
    const reporting::Table& table = window.shown.front().tables.front();
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
  std::unique_ptr<test::TestDatabase> database_;
};

static const test::RegisterTest<RptProfitStatementTest> kRegistered;

#include "RptProfitStatementTest.moc"
