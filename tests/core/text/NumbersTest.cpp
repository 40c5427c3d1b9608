#include "core/text/Amounts.h"
#include "support/Test.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

using namespace quorvane::text;
namespace test = quorvane::test;

namespace {

double Printed15(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.14e", value);
  return std::strtod(text, nullptr);
}

double RandomNumber(std::mt19937_64& random) {
  const auto whole = static_cast<double>(static_cast<std::int64_t>(random() >> 24)) - 5e11;
  switch (random() % 4) {
    case 0:
      return whole / 10000;
    case 1:
      return whole / 1e4 + whole / 1e7;
    case 2:
      return whole / static_cast<double>(random() % 1000 + 1);
    default: {
      const double any = std::bit_cast<double>(random());
      return std::isnormal(any) && std::abs(any) < 1e300 ? any : whole;
    }
  }
}

std::string Exact(double value) {
  std::string text;
  AppendExact(text, value);
  return text;
}

}  // namespace

class NumbersTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void NumberIsPlainText_data() {
    const test::Table<double, QString, QString> row;
    row("zero", -0.0, "0", "0");
    row("dust", 0.1 + 0.2, "0.3", "0.30000000000000004");
    row("sixteen digits", 1234567890123456.0, "1234567890123460", "1234567890123456");
    row("no exponent", 1e23, "100000000000000000000000", "100000000000000000000000");
    row("no negative exponent", -1.5e-7, "-0.00000015", "-0.00000015");
    row("infinite", -std::numeric_limits<double>::infinity(), "-inf", "-inf");
    row("no number", std::numeric_limits<double>::quiet_NaN(), "nan", "nan");
  }
  void NumberIsPlainText() {
    const auto [value, text, exact] = test::Table<double, QString, QString>::Row();
    QCOMPARE(NumberText(value), text);
    QCOMPARE(QString::fromStdString(Exact(value)), exact);
  }

  void NumberTextHasFifteenDigitsAndExactTextReadsBack() {
    std::mt19937_64 random(42);
    for (int i = 0; i < 200'000; ++i) {
      const double value = RandomNumber(random);
      const std::string number = NumberText(value).toStdString();
      const std::string exact = Exact(value);
      const bool plain = number.find_first_not_of("-0123456789.") == std::string::npos &&
                         exact.find_first_not_of("-0123456789.") == std::string::npos;
      const bool enough = std::strtod(number.c_str(), nullptr) == value;
      if (!plain || std::strtod(number.c_str(), nullptr) != Printed15(value) ||
          std::strtod(exact.c_str(), nullptr) != value || (enough && exact != number)) {
        QFAIL(qPrintable(QString("%1: %2, %3")
                             .arg(value, 0, 'g', 17)
                             .arg(QString::fromStdString(number), QString::fromStdString(exact))));
      }
    }
  }

  void ValReadsTheLeadingNumber_data() {
    const test::Table<QString, double> row;
    row("empty", "", 0.0);
    row("blanks are passed over", " \t1 2 . 5 ", 12.5);
    row("stops at a letter", "12.5kg 7", 12.5);
    row("stops at a comma", "1,234.50", 1.0);
    row("stops at a later sign", "5-3", 5.0);
    row("no exponent", "2e3", 2.0);
    row("minus and blank", "- 7", -7.0);
    row("point first", ".5", 0.5);
    row("sign alone", "-", 0.0);
    row("digits of another script", QString(QChar(0x0967)), 0.0);
  }
  void ValReadsTheLeadingNumber() {
    const auto [text, value] = test::Table<QString, double>::Row();
    QCOMPARE(Val(text), value);
    QVERIFY(!std::signbit(Val(u"-0")));
  }

  void ParseNumberTakesWholePlainNumbersOnly_data() {
    const test::Table<QByteArray, bool, double> row;
    row("decimal", QByteArray("-12.5"), true, -12.5);
    row("empty", QByteArray(""), false, 0.0);
    row("sign alone", QByteArray("-"), false, 0.0);
    row("exponent", QByteArray("1e3"), false, 0.0);
    row("separator", QByteArray("1,000"), false, 0.0);
    row("inf", QByteArray("-inf"), false, 0.0);
    row("hexadecimal", QByteArray("0x10"), false, 0.0);
    row("too large", QByteArray(400, '9'), false, 0.0);
  }
  void ParseNumberTakesWholePlainNumbersOnly() {
    const auto [text, taken, value] = test::Table<QByteArray, bool, double>::Row();
    const auto number = ParseNumber(std::string_view(text.constData(), text.size()));
    QVERIFY(number == (taken ? std::optional(value) : std::nullopt));
  }
};

static const quorvane::test::RegisterTest<NumbersTest> kRegistered;
#include "NumbersTest.moc"
