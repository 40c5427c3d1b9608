#include "reporting/period/Period.h"
#include "support/Test.h"

using namespace quorvane;
using namespace quorvane::reporting;

namespace {

QString Text(const Period& period) {
  return text::FormatDmy(period.from) + "-" + text::FormatDmy(period.to);
}

QString Outcome(const Result<Period>& found) {
  return found ? Text(*found) : found.Why().text;
}

}  // namespace

class PeriodTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RefusalPointsToItsBox() {
    QCOMPARE(ReadPeriod("", "x").Why().field, Field::kFromDate);
    QCOMPARE(ReadPeriod("01/04/2011", "x").Why().field, Field::kToDate);
  }

  void MonthsLieInTheirCalendarYear_data() {
    const test::Table<int, QString, QString> row;
    row("leap", 2011, "Febuary", "01/02/2012-29/02/2012");
    row("no leap", 2012, "Febuary", "01/02/2013-28/02/2013");
    row("century", 2099, "Febuary", "01/02/2100-28/02/2100");
    row("none", 2011, "February", "Month is not between in Financial year Period.Pls Fill Correct");
  }
  void MonthsLieInTheirCalendarYear() {
    const auto [year, month, outcome] = test::Table<int, QString, QString>::Row();
    QCOMPARE(Outcome(MonthPeriod(text::FinancialYear(year), MonthNumber(month))), outcome);
  }

  void MonthsTogetherAreTheYear() {
    const text::FinancialYear year(2011);
    text::Date next = year.FirstDay();
    for (const QString& name : MonthNames()) {
      const Period month = *MonthPeriod(year, MonthNumber(name));
      QCOMPARE(text::FormatDmy(month.from), text::FormatDmy(next));
      next = month.to + std::chrono::days(1);
    }
    QCOMPARE(text::FormatDmy(next), text::FormatDmy(year.Next().FirstDay()));
  }
};

static const test::RegisterTest<PeriodTest> kRegistered;
#include "PeriodTest.moc"
