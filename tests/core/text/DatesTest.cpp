#include "core/text/Dates.h"
#include "core/text/FinancialYear.h"
#include "support/TestMain.h"

#include <QDate>
#include <QTest>

using namespace quorvane::text;

namespace {

QString TextOf(const std::optional<Date>& date) {
  return date ? FormatDmy(*date) : QString();
}

}  // namespace

class DatesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ParseDmyTakesExactDaysOnly_data();
  void ParseDmyTakesExactDaysOnly();
  void EveryDayReadsBack();
  void LeapYears_data();
  void LeapYears();
  void CompleteDateFillsUp_data();
  void CompleteDateFillsUp();
  void YearLater_data();
  void YearLater();
  void FinancialYearOfDays_data();
  void FinancialYearOfDays();
  void FinancialYearText_data();
  void FinancialYearText();
};

void DatesTest::ParseDmyTakesExactDaysOnly_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<bool>("taken");
  QTest::newRow("day") << "31/03/2012" << true;
  QTest::newRow("leap day") << "29/02/2012" << true;
  QTest::newRow("first year") << "01/01/0001" << true;
  QTest::newRow("no leap day") << "29/02/2011" << false;
  QTest::newRow("no leap day of a century") << "29/02/1900" << false;
  QTest::newRow("day 0") << "00/01/2012" << false;
  QTest::newRow("day 31 of April") << "31/04/2012" << false;
  QTest::newRow("month 13") << "01/13/2012" << false;
  QTest::newRow("year 0") << "01/01/0000" << false;
  QTest::newRow("empty") << "" << false;
  QTest::newRow("mask") << "  /  /    " << false;
  QTest::newRow("one-digit day") << "1/04/2012" << false;
  QTest::newRow("blank for a digit") << " 1/04/2012" << false;
  QTest::newRow("sign for a digit") << "-1/04/2012" << false;
  QTest::newRow("sign in the year") << "01/04/+012" << false;
  QTest::newRow("points") << "01.04.2012" << false;
  QTest::newRow("longer") << "01/04/2012 " << false;
  QTest::newRow("digits of another script") << QString("01/04/201") + QChar(0x0968) << false;
}

void DatesTest::ParseDmyTakesExactDaysOnly() {
  QFETCH(QString, text);
  QFETCH(bool, taken);
  QCOMPARE(TextOf(ParseDmy(text)), taken ? text : QString());
  QCOMPARE(TextOf(ParseDmy(std::string_view(text.toStdString()))), taken ? text : QString());
}

void DatesTest::EveryDayReadsBack() {
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

void DatesTest::LeapYears_data() {
  QTest::addColumn<int>("year");
  QTest::addColumn<bool>("leap");
  QTest::newRow("fourth century") << 2000 << true;
  QTest::newRow("fourth year") << 2012 << true;
  QTest::newRow("century") << 1900 << false;
  QTest::newRow("common year") << 2011 << false;
}

void DatesTest::LeapYears() {
  QFETCH(int, year);
  QTEST(IsLeapYear(year), "leap");
}

void DatesTest::CompleteDateFillsUp_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("complete");
  QTest::newRow("complete already") << "15/06/2010"
                                    << "15/06/2010";
  QTest::newRow("points and one digit") << "1.4.2012"
                                        << "01/04/2012";
  QTest::newRow("two-digit year") << "1/4/12"
                                  << "01/04/2012";
  QTest::newRow("last year of this century") << "31/12/29"
                                             << "31/12/2029";
  QTest::newRow("first year of the last century") << "1/1/30"
                                                  << "01/01/1930";
  QTest::newRow("year 99") << "1/1/99"
                           << "01/01/1999";
  QTest::newRow("year 00") << "1/1/00"
                           << "01/01/2000";
  QTest::newRow("one-digit year is of this decade") << "1/1/9"
                                                    << "01/01/2019";
  QTest::newRow("three-digit year") << "1/1/009"
                                    << "01/01/2009";
  QTest::newRow("three digits far beyond") << "1/1/999"
                                           << "01/01/1999";
  QTest::newRow("four digits stay") << "1/1/2050"
                                    << "01/01/2050";
  QTest::newRow("leap day by the completed year") << "29/2/12"
                                                  << "29/02/2012";
  QTest::newRow("leap day of a common year") << "29/2/11"
                                             << "";
  QTest::newRow("leap day after the fall back") << "29/2/32"
                                                << "29/02/1932";
  QTest::newRow("blanks around") << "  1/4/12 "
                                 << "01/04/2012";
  QTest::newRow("month first") << "12/31/2012"
                               << "";
  QTest::newRow("empty") << ""
                         << "";
  QTest::newRow("empty mask") << "  /  /    "
                              << "";
  QTest::newRow("no year") << "1/4"
                           << "";
  QTest::newRow("empty year") << "1/4/"
                              << "";
  QTest::newRow("four parts") << "1/4/12/1"
                              << "";
  QTest::newRow("three-digit day") << "001/4/12"
                                   << "";
  QTest::newRow("five-digit year") << "1/4/02012"
                                   << "";
  QTest::newRow("sign") << "+1/4/12"
                        << "";
  QTest::newRow("month name") << "1/Apr/12"
                              << "";
}

void DatesTest::CompleteDateFillsUp() {
  QFETCH(QString, typed);
  QFETCH(QString, complete);
  const auto date = CompleteDate(typed, *MakeDate(5, 7, 2012));
  QCOMPARE(date.has_value(), !complete.isEmpty());
  QCOMPARE(date.value_or(QString()), complete);
}

void DatesTest::YearLater_data() {
  QTest::addColumn<QString>("day");
  QTest::addColumn<QString>("later");
  QTest::newRow("common") << "15/06/2010"
                          << "15/06/2011";
  QTest::newRow("leap day") << "29/02/2012"
                            << "28/02/2013";
  QTest::newRow("28 February before a leap year") << "28/02/2011"
                                                  << "28/02/2012";
  QTest::newRow("over a leap day") << "01/03/2011"
                                   << "01/03/2012";
  QTest::newRow("year's end") << "31/12/1999"
                              << "31/12/2000";
}

void DatesTest::YearLater() {
  QFETCH(QString, day);
  QTEST(FormatDmy(AddYear(*ParseDmy(day))), "later");
}

void DatesTest::FinancialYearOfDays_data() {
  QTest::addColumn<QString>("day");
  QTest::addColumn<QString>("year");
  QTest::newRow("first day") << "01/04/2011"
                             << "2011-12";
  QTest::newRow("last day") << "31/03/2012"
                            << "2011-12";
  QTest::newRow("day after") << "01/04/2012"
                             << "2012-13";
  QTest::newRow("century's end") << "31/12/1999"
                                 << "1999-00";
}

void DatesTest::FinancialYearOfDays() {
  QFETCH(QString, day);
  const Date date = *ParseDmy(day);
  const FinancialYear year = FinancialYear::Of(date);
  QTEST(year.Text(), "year");
  QVERIFY(year.Contains(date));
  QVERIFY(!year.Previous().Contains(date));
  QVERIFY(!year.Next().Contains(date));
  QCOMPARE(year.LastDay() + std::chrono::days(1), year.Next().FirstDay());
}

void DatesTest::FinancialYearText_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<int>("first");
  QTest::newRow("plain") << "2011-12" << 2011;
  QTest::newRow("century's end") << "1999-00" << 1999;
  QTest::newRow("early") << "0099-00" << 99;
  QTest::newRow("not the next year") << "2011-13" << 0;
  QTest::newRow("same year") << "2011-11" << 0;
  QTest::newRow("four digits twice") << "2011-2012" << 0;
  QTest::newRow("slash") << "2011/12" << 0;
  QTest::newRow("blank") << "2011- 2" << 0;
  QTest::newRow("dash for a digit") << "20-1-12" << 0;
  QTest::newRow("empty") << "" << 0;
}

void DatesTest::FinancialYearText() {
  QFETCH(QString, text);
  QFETCH(int, first);
  const auto year = FinancialYear::Parse(text);
  QCOMPARE(year.has_value(), first != 0);
  if (year) {
    QCOMPARE(year->FirstCalendarYear(), first);
    QCOMPARE(year->Utf8(), text.toStdString());
  }
}

static const quorvane::test::RegisterTest<DatesTest> kRegistered;

#include "DatesTest.moc"
