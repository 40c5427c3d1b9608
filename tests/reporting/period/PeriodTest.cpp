#include "reporting/period/Period.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::reporting;

namespace {

QString Text(const Period& period) {
  return text::FormatDmy(period.from) + "-" + text::FormatDmy(period.to);
}

template <class Found>
QString Outcome(const Found& found) {
  const auto* refusal = std::get_if<Refusal>(&found);
  return refusal != nullptr ? refusal->text : Text(std::get<Period>(found));
}

}  // namespace

class PeriodTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FirstBrokenRuleIsTold_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("outcome");
    QTest::addRow("whole") << "01/04/2011"
                           << "31/03/2012"
                           << "01/04/2011-31/03/2012";
    QTest::addRow("one day") << "05/05/2011"
                             << "05/05/2011"
                             << "05/05/2011-05/05/2011";
    QTest::addRow("both empty") << ""
                                << ""
                                << "Enter From Date.";
    QTest::addRow("no end") << "01/04/2011"
                            << " "
                            << "Enter To Date.";
    QTest::addRow("no day") << "31/04/2011"
                            << "31/03/2012"
                            << "Enter Proper Date.";
    QTest::addRow("turned") << "02/05/2011"
                            << "01/05/2011"
                            << "From Date Can't be Greater than To Date.";
  }

  void FirstBrokenRuleIsTold() {
    QFETCH(QString, from);
    QFETCH(QString, to);
    QTEST(Outcome(ReadPeriod(from, to)), "outcome");
  }

  void RefusalPointsToItsBox() {
    QCOMPARE(std::get<Refusal>(ReadPeriod("", "x")).field, QStringLiteral("Text1_0"));
    QCOMPARE(std::get<Refusal>(ReadPeriod("01/04/2011", "x")).field, QStringLiteral("Text1_1"));
  }

  void MonthsLieInTheirCalendarYear_data() {
    QTest::addColumn<int>("year");
    QTest::addColumn<QString>("month");
    QTest::addColumn<QString>("outcome");
    QTest::addRow("first") << 2011 << "April"
                           << "01/04/2011-30/04/2011";
    QTest::addRow("thirty-one") << 2011 << "August"
                                << "01/08/2011-31/08/2011";
    QTest::addRow("end of the first year") << 2011 << "December"
                                           << "01/12/2011-31/12/2011";
    QTest::addRow("second year") << 2011 << "January"
                                 << "01/01/2012-31/01/2012";
    QTest::addRow("leap") << 2011 << "Febuary"
                          << "01/02/2012-29/02/2012";
    QTest::addRow("no leap") << 2012 << "Febuary"
                             << "01/02/2013-28/02/2013";
    QTest::addRow("century") << 2099 << "Febuary"
                             << "01/02/2100-28/02/2100";
    QTest::addRow("last") << 2011 << "March"
                          << "01/03/2012-31/03/2012";
    QTest::addRow("none") << 2011 << "February"
                          << "Month is not between in Financial year Period.Pls Fill Correct";
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
      const Period month = std::get<Period>(MonthPeriod(year, MonthNumber(name)));
      QCOMPARE(text::FormatDmy(month.from), text::FormatDmy(next));
      next = month.to + std::chrono::days(1);
    }
    QCOMPARE(text::FormatDmy(next), text::FormatDmy(year.Next().FirstDay()));
  }
};

static const test::RegisterTest<PeriodTest> kRegistered;

#include "PeriodTest.moc"
