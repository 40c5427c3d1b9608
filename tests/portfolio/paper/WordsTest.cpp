#include "portfolio/paper/Facts.h"
#include "portfolio/paper/PaperFile.h"
#include "portfolio/paper/Words.h"
#include "support/Test.h"

using namespace quorvane;
using namespace quorvane::paper;

class WordsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void NumbersAreReadAsTheyArePrinted_data() {
    const test::Table<std::string, double> row;
    row("Indian commas", "7,56,360.00", 756360);
    row("no digit before the point", ".196", 0.196);
    row("nothing after the point", "12.", 12);
    row("brackets", "(20,419.25)", -20419.25);
    row("sign", "-10", -10);
    row("rupees", "₹5.50", 5.5);
    row("dash", "--", 0);
  }
  void NumbersAreReadAsTheyArePrinted() {
    const auto [word, number] = test::Table<std::string, double>::Row();
    QCOMPARE(NumberOf(word).value_or(-1), number);
  }

  void OtherWordsAreNoNumbers_data() {
    const test::Table<std::string> row;
    for (const char* word : {"", "RE2/-", "3M", "1,,000", ",5", "1.2.3", "()", ".", "2.50%", "1e5",
                             "999999999999999999999999999"}) {
      row(word, word);
    }
  }
  void OtherWordsAreNoNumbers() {
    const auto [word] = test::Table<std::string>::Row();
    QVERIFY(!NumberOf(word));
  }

  void IsinIsFoundInAWord_data() {
    const test::Table<std::string, std::string> row;
    row("alone", "INE999A01015", "INE999A01015");
    row("behind a name", "ZINC-EQ/INE999A01015", "INE999A01015");
    row("with marks", "INE999A01015@##", "INE999A01015");
    row("government's", "IN0020990100", "IN0020990100");
    row("account of a depository", "IN30999910000001", "");
    row("word", "INFRASTRUCTURE", "");
    row("too long", "INE999A010155", "");
  }
  void IsinIsFoundInAWord() {
    const auto [word, isin] = test::Table<std::string, std::string>::Row();
    QCOMPARE(IsinIn(word), isin);
  }

  void DaysAreFound_data() {
    const test::Table<std::string, QString> row;
    row("two", "from 01-Jun-2026 to 30/06/2026", "01/06/2026 30/06/2026");
    row("words", "30 June 2026, June 1, 2026", "30/06/2026 01/06/2026");
    row("year first", "2026-06-30T10:00:00", "30/06/2026");
    row("short year", "30-Jun-26", "30/06/2026");
    row("no such day", "31-02-2026", "");
    row("amounts", "12,345.67 10.00 2026", "");
  }
  void DaysAreFound() {
    const auto [text, told] = test::Table<std::string, QString>::Row();
    QStringList days;
    for (const FoundDay& found : DaysIn(text)) {
      days << text::FormatDmy(found.day);
    }
    QCOMPARE(days.join(QLatin1Char(' ')), told);
  }

  void AccountsAreFoundOverLines_data() {
    const test::Table<std::vector<std::string>, std::string> row;
    row("NSDL", {"DP ID: IN399901", "Client ID: 10000001"}, "IN39990110000001");
    row("NSDL in one word", {"Account IN39990110000001"}, "IN39990110000001");
    row("NSDL with a dash", {"IN399901-10000001"}, "IN39990110000001");
    row("CDSL", {"BO ID : 1299990000000012"}, "1299990000000012");
    row("CDSL in parts", {"DP ID:12999900", "Client ID:00000012"}, "1299990000000012");
    row("number of something else", {"Order 1299990000000012 of 12345678"}, "");
  }
  void AccountsAreFoundOverLines() {
    const auto [lines, account] = test::Table<std::vector<std::string>, std::string>::Row();
    AccountNumbers numbers;
    std::string last;
    for (const std::string& line : lines) {
      last = numbers.Take(line);
    }
    QCOMPARE(last, account);
  }

  void WordsOfOneHeightAreALine() {
    documents::PrintedText text;
    text.pages = 2;
    text.words = {{0, 100, 120, 10, 20, "500"},   {0, 10, 60, 10.5, 19, "ZINC"},
                  {0, 10, 60, 21, 31, "LTD"},     {0, 70, 95, 10, 20, "2,81"},
                  {0, 96, 99, 10, 20, ",590.53"}, {1, 10, 60, 10, 20, "NEXT"}};
    QStringList lines;
    for (const Line& line : LinesOf(text)) {
      lines << QString::fromStdString(line.Text());
    }
    QCOMPARE(lines, QStringList({"ZINC 2,81,590.53 500", "LTD", "NEXT"}));
  }

  void UsualPasswordsAreTried() {
    QCOMPARE(PasswordsFor("abcpk1234l", "01/02/1970", {"", "own"}),
             QStringList({"own", "ABCPK1234L", "ABCPK1234L01021970", "abcpk1234l",
                          "abcpk1234l01021970", "01021970"}));
    QCOMPARE(PasswordsFor("", "", {""}), QStringList());
  }
};

static const test::RegisterTest<WordsTest> kRegistered;
#include "WordsTest.moc"
