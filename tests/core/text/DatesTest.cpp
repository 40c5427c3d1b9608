#include "core/text/Dates.h"
#include "core/text/FinancialYear.h"
#include "support/Test.h"

#include <QDate>

using namespace quorvane::text;
namespace test = quorvane::test;

namespace {

QString TextOf(const std::optional<Date>& date) {
  return date ? FormatDmy(*date) : QString();
}

}  // namespace

class DatesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ParseDmyTakesExactDaysOnly_data() {
    const test::Table<QString, bool> row;
    row("first year", "01/01/0001", true);
    row("no leap day of a century", "29/02/1900", false);
    row("year 0", "01/01/0000", false);
    row("empty", "", false);
    row("one-digit day", "1/04/2012", false);
    row("sign for a digit", "-1/04/2012", false);
    row("sign in the year", "01/04/+012", false);
    row("longer", "01/04/2012 ", false);
  }
  void ParseDmyTakesExactDaysOnly() {
    const auto [text, taken] = test::Table<QString, bool>::Row();
    QCOMPARE(TextOf(ParseDmy(text)), taken ? text : QString());
    QCOMPARE(TextOf(ParseDmy(std::string_view(text.toStdString()))), taken ? text : QString());
  }

  void EveryDayReadsBack() {
    const QDate epoch(1970, 1, 1);
    for (QDate day(1899, 12, 28); day < QDate(2105, 3, 2); day = day.addDays(1)) {
      const Date date(std::chrono::days(epoch.daysTo(day)));
      std::string text;
      AppendDmy(text, date);
      if (text != day.toString(QStringLiteral("dd/MM/yyyy")).toStdString() ||
          ParseDmy(text) != date || MakeDate(day.day(), day.month(), day.year()) != date) {
        QFAIL(text.c_str());
      }
    }
  }

  void CompleteDateFillsUp_data() {
    const test::Table<QString, QString> row;
    row("points and one digit", "1.4.2012", "01/04/2012");
    row("two-digit year", "1/4/12", "01/04/2012");
    row("last year of this century", "31/12/29", "31/12/2029");
    row("first year of the last century", "1/1/30", "01/01/1930");
    row("one-digit year is of this decade", "1/1/9", "01/01/2019");
    row("four digits stay", "1/1/2050", "01/01/2050");
    row("leap day by the completed year", "29/2/12", "29/02/2012");
    row("leap day of a common year", "29/2/11", "");
    row("leap day after the fall back", "29/2/32", "29/02/1932");
    row("blanks around", "  1/4/12 ", "01/04/2012");
    row("empty", "", "");
    row("no year", "1/4", "");
    row("three-digit day", "001/4/12", "");
    row("sign", "+1/4/12", "");
  }
  void CompleteDateFillsUp() {
    const auto [typed, complete] = test::Table<QString, QString>::Row();
    const auto date = CompleteDate(typed, *MakeDate(5, 7, 2012));
    QCOMPARE(date.has_value(), !complete.isEmpty());
    QCOMPARE(date.value_or(QString()), complete);
  }

  void YearLater_data() {
    const test::Table<QString, QString> row;
    row("leap day", "29/02/2012", "28/02/2013");
    row("28 February before a leap year", "28/02/2011", "28/02/2012");
  }
  void YearLater() {
    const auto [day, later] = test::Table<QString, QString>::Row();
    QCOMPARE(FormatDmy(AddYear(*ParseDmy(day))), later);
  }

  void FinancialYearOfDays_data() {
    const test::Table<QString, QString> row;
    row("first day", "01/04/2011", "2011-12");
    row("last day", "31/03/2012", "2011-12");
    row("day after", "01/04/2012", "2012-13");
  }
  void FinancialYearOfDays() {
    const auto [day, text] = test::Table<QString, QString>::Row();
    const Date date = *ParseDmy(day);
    const FinancialYear year = FinancialYear::Of(date);
    QCOMPARE(year.Text(), text);
    QVERIFY(year.Contains(date));
    QVERIFY(!year.Previous().Contains(date));
    QVERIFY(!year.Next().Contains(date));
    QCOMPARE(year.LastDay() + std::chrono::days(1), year.Next().FirstDay());
  }

  void FinancialYearText_data() {
    const test::Table<QString, int> row;
    row("century's end", "1999-00", 1999);
    row("not the next year", "2011-13", 0);
    row("dash for a digit", "20-1-12", 0);
    row("empty", "", 0);
  }
  void FinancialYearText() {
    const auto [text, first] = test::Table<QString, int>::Row();
    const auto year = FinancialYear::Parse(text);
    QCOMPARE(year.has_value(), first != 0);
    if (year) {
      QCOMPARE(year->FirstCalendarYear(), first);
      QCOMPARE(year->Utf8(), text.toStdString());
    }
  }
};

static const quorvane::test::RegisterTest<DatesTest> kRegistered;
#include "DatesTest.moc"
