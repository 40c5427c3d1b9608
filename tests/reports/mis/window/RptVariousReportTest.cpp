#include "reports/Sample.h"
#include "reports/mis/window/RptVariousReport.h"
#include "support/Files.h"
#include "support/LocalExchange.h"
#include "support/ShownWindow.h"

using namespace quorvane;
using namespace quorvane::mis;

namespace {

/// The window over the sample portfolio, opened without a client and driven by keys and clicks.
struct Shown : test::ShownWindow<RptVariousReport> {
  explicit Shown(test::TestDatabase& database) {
    today_ = *text::MakeDate(15, 11, 2013);
    session_.folders = app::Folders::At(folder.path());
    Open(database);
    Named<controls::ComboBox>("CboYr")->ByText("2011-12");
  }

  controls::Grid& Grid(const char* name) const { return *Named<controls::Grid>(name); }
  void Click(const char* button) const { Named<QAbstractButton>(button)->click(); }
  void GoToRates() const { Named<QTabWidget>("Pages")->setCurrentIndex(2); }
  const reporting::ReportModel& Screen() const {
    return Named<reporting::ReportGridView>("VS")->Model();
  }
  QStringList Titles() const { return Screen().Document().titles; }
};

}  // namespace

class RptVariousReportTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
  }

  void ReportIsMadeByKeyboard() {
    const Shown window(*database_);
    QVERIFY(!window.Named<QWidget>("CmdRepType_0")->isVisible());
    QTest::keyClick(window.window, Qt::Key_V, Qt::AltModifier);
    QTRY_VERIFY(window.Named<QWidget>("CmdRepType_0")->isVisible());
    Shown::Press(Qt::Key_Right);
    Shown::Press(Qt::Key_Right);
    Shown::Press(Qt::Key_Return);
    QCOMPARE(window.Titles(), QStringList({"Portfolio Valuation as on 31 March, 2012",
                                           "Financial Year : 2011-12", "GROUP NAME- ATHALEKAR"}));
    window.Click("CmdShowReport");
    QCOMPARE(window.reports.size(), std::size_t{1});
    QCOMPARE(window.reports.front().titles, window.Titles());
    const int rows = window.Screen().rowCount();
    window.Click("Option1_1");
    Shown::Press(Qt::Key_F5);
    QVERIFY(window.Screen().rowCount() < rows);
  }

  void GroupIsWholeAndSingleClientsAreTicked() {
    const Shown window(*database_);
    controls::GridModel& clients = window.Grid("VSC").Model();
    QCOMPARE(clients.TickedIds().size(), std::size_t{4});
    clients.SetTicked(0, false);
    QVERIFY(clients.AllTicked());
    window.Click("Option1_5");
    QCOMPARE(clients.TickedIds().size(), std::size_t{0});
    QCOMPARE(window.Grid("VSD").Model().RowCount(), 0);
    clients.SetTicked(clients.RowOf(1), true);
    QCOMPARE(window.Grid("VSD").Model().RowCount(), 2);
    window.Grid("VSD").Model().SetTicked(0, false);
    clients.SetTicked(clients.RowOf(2), true);
    QCOMPARE(window.Grid("VSD").Model().RowCount(), 3);
    QCOMPARE(window.Grid("VSD").Model().TickedIds().size(), std::size_t{2});
    window.Click("Option1_3");
    QCOMPARE(window.Grid("VSS").Model().RowCount(), 40);
  }

  void SelectionIsCheckedInItsOrder() {
    Shown window(*database_);
    window.Click("CmdPortPos");
    for (const char* grid : {"VSS", "VSD", "VSC"}) {
      if (QByteArray(grid) == "VSC") {
        window.Click("Option1_5");
      } else {
        window.Grid(grid).Model().TickAll(false);
      }
      window.Click("CmdRepType_0");
    }
    QCOMPARE(window.messages.Texts(),
             QStringList({"Select Script Name!", "Select Demat A/c!", "Select Client!"}));
    QCOMPARE(window.Screen().rowCount(), 0);
  }

  void DayOfTheRatesStaysInItsYear() {
    Shown window(*database_);
    window.Named<controls::DateBox>("Text3")->SetDate("30/04/2012");
    window.Click("CmdShowPLRpt");
    QCOMPARE(window.messages.Texts(),
             QStringList("The date lies outside the financial year 2011-12."));
    window.Named<controls::DateBox>("Text3")->SetDate("31/03/2012");
    window.Click("CmdShowPLRpt");
    QCOMPARE(window.Titles().first(), "Market Valuation as on 31 March, 2012");
    QVERIFY(window.Named<QAbstractButton>("CmdShowPLRpt")->isChecked());
    QVERIFY(!window.Named<QAbstractButton>("CmdProfitLossReport")->isChecked());
  }

  void RatesAreKeptByKeyboard() {
    Shown window(*database_);
    window.GoToRates();
    window.Named<controls::Grid>("VSf1")->setFocus();
    Shown::Press(Qt::Key_N, Qt::ControlModifier);
    Shown::Type("16112013");
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(window.messages.LastText(), "You can't insert future Date");
    Shown::Type("01112013");
    Shown::Press(Qt::Key_Tab);
    window.Grid("VSF").setFocus();
    window.Grid("VSF").setCurrentIndex(window.Grid("VSF").model()->index(0, 3));
    Shown::Type("1101.5");
    Shown::Press(Qt::Key_Return);
    Shown::Type("202");
    Shown::Press(Qt::Key_Return);
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(window.messages.LastText(), "Update Successfully!");
    const rates::RateBook book(**database_);
    QCOMPARE(book.RatesOf(*text::MakeDate(1, 11, 2013)).size(), std::size_t{2});
    QCOMPARE(window.Grid("VSf1").Model().RowCount(), 4);
    QCOMPARE(window.Grid("VSF").Model().RowCount(), 2);
    QCOMPARE(window.Grid("VSF").Model().Text(0, 3), "1101.50");
  }

  // The second scrip of the list has no price there; what is typed is kept as it is shown.
  void RatesOfTheChosenScripsAreFetchedAndWholePaiseKept() {
    Shown window(*database_);
    test::LocalExchange exchange;
    Written(window, "Confg.ini", "[Internet]\nNseHost=" + exchange.Address().toEncoded() + "\n");
    window.GoToRates();
    window.Click("cmdAdd");
    window.Named<controls::DateBox>("Text2")->SetDate("05/11/2013");
    window.Click("CmdFetch");
    QCOMPARE(window.messages.LastText(), "Select Script Name!");
    controls::Grid& grid = window.Grid("VSF");
    exchange.Answer("/content/equities/scripvol/datafiles/05-11-2013-TO-05-11-2013" +
                        grid.Model().Text(0, 2) + "ALLN.csv",
                    {.body = "Date,Close Price\n05-Nov-2013,\"1,234.50\"\n"});
    window.Named<controls::ComboBox>("CboExchange")->ByText("NSE");
    grid.selectRow(0);
    grid.selectionModel()->select(grid.model()->index(1, 0),
                                  QItemSelectionModel::Select | QItemSelectionModel::Rows);
    window.Click("CmdFetch");
    QVERIFY(!window.Named<QAbstractButton>("cmdUpdate")->isEnabled());
    QTRY_COMPARE(window.messages.LastText(),
                 "1 rates were fetched; of 1 scripts none was found. Press Update to keep them.");
    QVERIFY(grid.model()->setData(grid.model()->index(2, 3), "12.345"));
    window.Click("cmdUpdate");
    const auto rates = rates::RateBook(**database_).RatesOf(*text::MakeDate(5, 11, 2013));
    std::vector<double> kept;
    for (const auto& [scrip, rate] : rates) {
      kept.push_back(rate);
    }
    std::ranges::sort(kept);
    QCOMPARE(kept, std::vector<double>({12.35, 1234.5}));
  }

  void ChartSaysTheSameInItsTable() {
    const Shown window(*database_);
    window.Named<QTabWidget>("Pages")->setCurrentIndex(1);
    const auto& table = window.Named<reporting::ReportGridView>("VSChart")->Model();
    QCOMPARE(table.RowText(table.rowCount() - 1).section('\t', 0, 0), "Total");
    QCOMPARE(table.RowText(table.rowCount() - 1).section('\t', 2, 2), "100.00");
  }

 private:
  static QString Written(const Shown& window, const char* name, const QByteArray& content) {
    return test::WriteFile(window.folder.filePath(QLatin1String(name)), content);
  }
};

static const quorvane::test::RegisterTest<RptVariousReportTest> kRegistered;
#include "RptVariousReportTest.moc"
