#include "reports/Sample.h"
#include "reports/ShownReport.h"
#include "reports/performance/window/RptReturns.h"

using namespace quorvane;
using namespace quorvane::performance;

namespace {

struct Shown : test::ShownReport<RptReturns> {
  explicit Shown(test::TestDatabase& database)
      : ShownReport(database, "RptReturns", "ATH001", 2011) {}

  QStringList Titles() const {
    Click("CmdReport");
    return Screen().Document().titles;
  }
};

}  // namespace

class RptReturnsTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
  }

  void ClientOrFamilyScriptAndAccountAreChosen() {
    const Shown window(*database_);
    QCOMPARE(window.Titles().mid(1), QStringList("RAGHAV MOHAN ATHALEKAR"));
    window.Named<controls::ComboBox>("CmbAccount")->ByText("10014501");
    window.Named<controls::ComboBox>("CmbScript")->setCurrentIndex(1);
    const QStringList one = window.Titles();
    QCOMPARE(one.size(), 4);
    QCOMPARE(one[2], "Demat A/c No. 10014501");
    QCOMPARE(one[3], window.TextIn("CmbScript"));
    window.Click("optW_1");
    QCOMPARE(window.TextIn("CmbAccount"), "All Accounts");
    QCOMPARE(window.Titles().value(1).count(','), 3);
  }

  // Any period, also over several years; the chart has its months.
  void APeriodOfSeveralYearsHasItsChart() {
    const Shown window(*database_);
    window.Enter("Text1_1", "31/03/2014");
    window.Click("CmdReport");
    QCOMPARE(window.messages.Texts(), QStringList());
    const charts::ChartData& chart = window->findChild<charts::ChartPane*>()->Shown();
    QCOMPARE(chart.categories.size(), 36);
    QCOMPARE(chart.categories.last(), "Mar 2014");
    QVERIFY(chart.series[1].paise.back() > 0);
  }

  // Every amount of every table of groups adds up to its total.
  void ColumnsAddUp() {
    const Shown window(*database_);
    window.Click("optW_1");
    window.Click("CmdReport");
    int totals = 0;
    for (const reporting::Table& table : window.Screen().Document().tables) {
      std::vector<Paise> sums(table.columns.size());
      for (const reporting::Row& row : table.rows) {
        for (std::size_t i = 1; i < row.cells.size(); ++i) {
          const double* number = std::get_if<double>(&row.cells[i]);
          const Paise amount = number == nullptr ? Paise() : Paise::OfRupees(*number);
          const bool adds_up = table.columns[i].heading != "% a Year";
          if (row.kind == reporting::RowKind::kNetTotal && adds_up) {
            QCOMPARE(amount, sums[i]);
            ++totals;
          }
          sums[i] += amount;
        }
      }
    }
    QVERIFY(totals > 20);
  }
};

static const test::RegisterTest<RptReturnsTest> kRegistered;
#include "RptReturnsTest.moc"
