#include "masters/ShownWindow.h"
#include "masters/clients/Documents.h"
#include "reports/Sample.h"
#include "reports/mis/window/RptVariousReport.h"
#include "support/Cases.h"
#include "support/DatabaseTest.h"
#include "support/LocalExchange.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvane;
using namespace quorvane::mis;
using Kind = test::RecordingMessages::Kind;

namespace {

/// The window over the sample portfolio, opened without a client and driven by keys and clicks.
struct Shown {
  explicit Shown(test::TestDatabase& database) {
    session.connection = std::make_unique<database::Connection>(database.Settings());
    session.folders = app::Folders::At(folder.path());
    desk.show_report = [this](const reporting::ReportDocument& document, QWidget*) {
      shown.push_back(document);
    };
    desk.ask_open_path = [this](QWidget*, const QString&, const QString&) { return rate_file; };
    window = std::make_unique<RptVariousReport>(desk);
    test::PutOnScreen(*window);
    Named<controls::ComboBox>("CboYr")->ByText("2011-12");
  }

  template <class Control>
  Control* Named(const char* name) const {
    return window->findChild<Control*>(QLatin1String(name));
  }
  controls::Grid& Grid(const char* name) const { return *Named<controls::Grid>(name); }
  void Click(const char* button) const { Named<QAbstractButton>(button)->click(); }
  void GoToRates() const { Named<QTabWidget>("Pages")->setCurrentIndex(2); }
  const reporting::ReportModel& Screen() const {
    return Named<reporting::ReportGridView>("VS")->Model();
  }
  QStringList Titles() const { return Screen().Document().titles; }
  QString Total() const {
    const reporting::Table& table = Screen().Document().tables.front();
    return reporting::CellText(table.rows.back().cells.back(), table.columns.back().mask);
  }
  static void Type(const QString& text) { test::ShownWindow<RptVariousReport>::Type(text); }
  static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }

  QTemporaryDir folder;
  app::Session session;
  test::RecordingMessages messages;
  reporting::ReportDesk desk{{session, messages, [] { return *text::MakeDate(15, 11, 2013); }}};
  QString rate_file;
  std::vector<reporting::ReportDocument> shown;
  std::unique_ptr<RptVariousReport> window;
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
    QTest::keyClick(window.window.get(), Qt::Key_V, Qt::AltModifier);
    QTRY_VERIFY(window.Named<QWidget>("CmdRepType_0")->isVisible());
    Shown::Press(Qt::Key_Right);
    Shown::Press(Qt::Key_Right);
    Shown::Press(Qt::Key_Return);
    QCOMPARE(window.Titles(), QStringList({"Portfolio Valuation as on 31 March, 2012",
                                           "Financial Year : 2011-12", "GROUP NAME- ATHALEKAR"}));
    window.Click("CmdShowReport");
    QCOMPARE(window.shown.size(), std::size_t{1});
    QCOMPARE(window.shown.front().titles, window.Titles());
    const int rows = window.Screen().rowCount();
    window.Click("Option1_1");
    Shown::Press(Qt::Key_F5);
    QVERIFY(window.Screen().rowCount() < rows);
  }

  void EveryReportKeepsItsTitle_data() {
    const test::Cases<QString, QString> cases("button", "title");
    cases.Add("position", "CmdPortPos", "Portfolio Position (Demat A/c Wise)");
    cases.Add("valuation", "CmdPortVal", "Portfolio Valuation as on 31 March, 2012");
    cases.Add("profit", "CmdProfitLossReport", "Profit/Loss Report (Demat A/c Wise)");
    cases.Add("stock", "CmdStkVal", "Stock Valuation as on 31 March, 2012");
  }

  void EveryReportKeepsItsTitle() {
    QFETCH(QString, button);
    const Shown window(*database_);
    window.Click(button.toLatin1());
    window.Click("CmdRepType_1");
    QTEST(window.Titles().first(), "title");
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

  void EnteredRatesAreGivenUpOrDeletedOnlyWhenAsked() {
    Shown window(*database_);
    window.GoToRates();
    window.Click("cmdModify");
    QCOMPARE(window.Grid("VSF").Model().RowCount(), 40);
    window.Grid("VSF").Model().SetValue(0, 3, 9.0);
    QVERIFY(!window.window->close());
    QCOMPARE(window.messages.said.back().kind, Kind::kAsk);
    window.Click("cmdCancel");
    const rates::RateBook book(**database_);
    const auto dates = book.Dates();
    window.Click("CmdDelete");
    QCOMPARE(window.messages.LastText(),
             "Are You Sure, You want to Delete All Records of this Date?");
    QCOMPARE(book.Dates(), dates);
    window.messages.WillAnswer(true);
    window.Click("CmdDelete");
    QCOMPARE(book.Dates().size(), dates.size() - 1);
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

  void RateFileIsCheckedAndFilledIn() {
    Shown window(*database_);
    window.GoToRates();
    window.Click("cmdAdd");
    window.Named<controls::DateBox>("Text2")->SetDate("04/11/2013");
    window.rate_file = Written(window, "bad.csv", "a,b\n1,2\n");
    window.Click("CmdImportRate");
    QVERIFY(window.messages.LastText().startsWith("Invalid File."));
    window.rate_file = Written(window, "good.csv",
                               "SYMBOL,SC_Code,SC_Name,SC_Group,SC_Class,SERIES,SC_Type,SC_Rate\n"
                               "HDFC,500010,HDFC,A,A,EQ,Q,812.35\n"
                               "NONE,999999,NOBODY,A,A,EQ,Q,5\n");
    window.Click("CmdImportRate");
    const rates::RateBook book(**database_);
    QVERIFY(book.RatesOf(*text::MakeDate(4, 11, 2013)).empty());
    window.Click("cmdUpdate");
    QCOMPARE(book.RatesOf(*text::MakeDate(4, 11, 2013)).size(), std::size_t{1});
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
