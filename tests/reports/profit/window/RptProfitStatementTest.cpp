#include "reports/Sample.h"
#include "reports/ShownReport.h"
#include "reports/profit/window/RptProfitStatement.h"
#include "transactions/bills/BillBook.h"

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

}  // namespace

class RptProfitStatementTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
  }

  void TargetDecidesTheReport_data() {
    const test::Table<QString, QString, QString, bool> row;
    row("profit", "RptProfitStatement", "Profit Statement RAGHAV MOHAN ATHALEKAR:2011-12",
        "Scriptwise Profitability Statement", false);
    row("gain", "rptcapitalgain", "Capital Gain Statement RAGHAV MOHAN ATHALEKAR:2011-12",
        "Capital Gain Statement", true);
  }
  void TargetDecidesTheReport() {
    const auto [target, caption, title, exports] =
        test::Table<QString, QString, QString, bool>::Row();
    const Shown window(*database_, target);
    QCOMPARE(window.window->windowTitle(), caption);
    QCOMPARE(window.Named<QWidget>("FrmExp")->isVisible(), exports);
    QCOMPARE(window.Named<QLineEdit>("Text1_0")->text(), "01/04/2011");
    QCOMPARE(window.Named<QLineEdit>("Text1_1")->text(), "31/03/2012");
    QVERIFY(window.Named<QAbstractButton>("optF_2")->isChecked());
    window.Click("CmdReport");
    QCOMPARE(window.Screen().Document().titles.first(), title);
    QCOMPARE(window.messages.said.size(), std::size_t{2});
    QCOMPARE(window.messages.said[0].kind, Kind::kAsk);
    QCOMPARE(window.messages.said[1].kind, Kind::kInform);
  }

  void YearsWithSectionsPointToTheTaxYear_data() {
    const test::Table<int, bool, bool, bool> row;
    row("before", 2016, true, false, false);
    row("from 2017-18 on", 2017, true, true, true);
    row("without such a window", 2020, false, true, false);
  }
  void YearsWithSectionsPointToTheTaxYear() {
    const auto [year, known, line, button] = test::Table<int, bool, bool, bool>::Row();
    using Window = test::ShownReport<RptProfitStatement>;
    Window window(*database_, "RptCapitalGain", "ATH002", year,
                  known ? QStringList("RptTaxYear") : QStringList());
    QCOMPARE(window.Named<QWidget>("LblTaxYear") != nullptr, line);
    QCOMPARE(window.Named<QWidget>("CmdTaxYear") != nullptr, button);
    if (button) {
      const auto current = window.Session().current;
      window.Session().current.reset();  // another client was chosen elsewhere
      window.Click("CmdTaxYear");
      QCOMPARE(window.opened, QStringList("RptTaxYear"));
      QVERIFY(window.Session().current == current);
    }
  }

  void ScreenPaperAndFilesHaveTheSameGains() {
    Shown window(*database_, "RptCapitalGain");
    const QStringList net = window.Report();
    QCOMPARE(net.first(), "Net Total");
    window.Menu("mnupreview");
    window.Click("OptFormat_1");
    window.Menu("mnupreview");
    QCOMPARE(window.reports.size(), std::size_t{2});
    for (const reporting::ReportDocument& document : window.reports) {
      const reporting::Table& table = document.tables.front();
      QStringList gains;
      for (std::size_t i = kFirstGain; i < table.columns.size(); ++i) {
        gains.append(reporting::CellText(table.rows.back().cells[i], table.columns[i].mask));
      }
      QCOMPARE(gains, net.mid(kFirstGain));
    }
    QCOMPARE(window.reports[0].tables.front().columns.front().heading, "S.No");
    QCOMPARE(window.reports[1].tables.front().columns.front().heading, "Date");
  }

  void ChoicesChangeTheFigures_data() {
    const test::Table<QString> row;
    for (const char* choice : {"optSTax_1", "optSTT_1", "Option2_1", "Option2_2", "ChkAverage"}) {
      row(choice, choice);
    }
  }
  void ChoicesChangeTheFigures() {
    const auto [choice] = test::Table<QString>::Row();
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
  void SavingAsksForThePlace() {
    Shown window(*database_);
    window.Menu("mnupdf");
    QVERIFY(window.messages.said.empty());
    window.save_path = window.folder.filePath("mine.pdf");
    window.Menu("mnupdf");
    QVERIFY(test::ReadFile(window.save_path).startsWith("%PDF-"));
    window.save_path = window.folder.filePath("none/mine.csv");
    window.Menu("mnucsv");
    QCOMPARE(window.messages.said.back().kind, Kind::kRefuse);
    QVERIFY(window.messages.LastText().startsWith("mnucsv_Click"));
  }
};

static const test::RegisterTest<RptProfitStatementTest> kRegistered;
#include "RptProfitStatementTest.moc"
