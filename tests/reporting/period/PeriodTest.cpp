#include "reporting/period/Period.h"
#include "support/Cases.h"
#include "support/TestMain.h"

#include <QTest>

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
  void FirstBrokenRuleIsTold_data() {
    const test::Cases<QString, QString, QString> cases("from", "to", "outcome");
    cases.Add("one day", "05/05/2011", "05/05/2011", "05/05/2011-05/05/2011");
    cases.Add("both empty", "", "", "Enter From Date.");
    cases.Add("no end", "01/04/2011", " ", "Enter To Date.");
    cases.Add("turned", "02/05/2011", "01/05/2011", "From Date Can't be Greater than To Date.");
  }

  void FirstBrokenRuleIsTold() {
    QFETCH(QString, from);
    QFETCH(QString, to);
    QTEST(Outcome(ReadPeriod(from, to)), "outcome");
  }

  void RefusalPointsToItsBox() {
    QCOMPARE(ReadPeriod("", "x").Why().field, Field::kFromDate);
    QCOMPARE(ReadPeriod("01/04/2011", "x").Why().field, Field::kToDate);
  }

  void MonthsLieInTheirCalendarYear_data() {
    const test::Cases<int, QString, QString> cases("year", "month", "outcome");
    cases.Add("leap", 2011, "Febuary", "01/02/2012-29/02/2012");
    cases.Add("no leap", 2012, "Febuary", "01/02/2013-28/02/2013");
    cases.Add("century", 2099, "Febuary", "01/02/2100-28/02/2100");
    cases.Add("none", 2011, "February",
              "Month is not between in Financial year Period.Pls Fill Correct");
  }

  void MonthsLieInTheirCalendarYear() {
    QFETCH(int, year);
    QFETCH(QString, month);
    QTEST(Outcome(MonthPeriod(text::FinancialYear(year), MonthNumber(month))), "outcome");
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
