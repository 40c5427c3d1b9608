#include "core/text/Amounts.h"
#include "support/TestMain.h"

#include <QLocale>
#include <QTest>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

using namespace quorvane::text;

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
  void NumberIsPlainText_data();
  void NumberIsPlainText();
  void NumberTextHasFifteenDigitsAndExactTextReadsBack();
  void TidyTakesDustOff_data();
  void TidyTakesDustOff();
  void TidyIsTheFifteenDigitForm();
  void ValReadsTheLeadingNumber_data();
  void ValReadsTheLeadingNumber();
  void ParseNumberTakesWholePlainNumbersOnly_data();
  void ParseNumberTakesWholePlainNumbersOnly();
};

void NumbersTest::NumberIsPlainText_data() {
  QTest::addColumn<double>("value");
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("exact");
  QTest::newRow("zero") << -0.0 << "0"
                        << "0";
  QTest::newRow("whole") << 100.0 << "100"
                         << "100";
  QTest::newRow("decimals") << -12.5 << "-12.5"
                            << "-12.5";
  QTest::newRow("zeros after the point") << 3.0007 << "3.0007"
                                         << "3.0007";
  QTest::newRow("small") << 0.00000125 << "0.00000125"
                         << "0.00000125";
  QTest::newRow("dust") << 0.1 + 0.2 << "0.3"
                        << "0.30000000000000004";
  QTest::newRow("third") << 1.0 / 3 << "0.333333333333333"
                         << "0.3333333333333333";
  QTest::newRow("fifteen digits") << 999999999999999.0 << "999999999999999"
                                  << "999999999999999";
  QTest::newRow("sixteen digits") << 1234567890123456.0 << "1234567890123460"
                                  << "1234567890123456";
  QTest::newRow("no exponent") << 1e23 << "100000000000000000000000"
                               << "100000000000000000000000";
  QTest::newRow("no negative exponent") << -1.5e-7 << "-0.00000015"
                                        << "-0.00000015";
  QTest::newRow("infinite") << -std::numeric_limits<double>::infinity() << "-inf"
                            << "-inf";
  QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << "nan"
                             << "nan";
}

void NumbersTest::NumberIsPlainText() {
  QFETCH(double, value);
  QTEST(NumberText(value), "text");
  QTEST(QString::fromStdString(Exact(value)), "exact");
}

void NumbersTest::NumberTextHasFifteenDigitsAndExactTextReadsBack() {
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

void NumbersTest::TidyTakesDustOff_data() {
  QTest::addColumn<double>("dusty");
  QTest::addColumn<double>("tidy");
  QTest::newRow("sum") << 0.1 + 0.2 << 0.3;
  QTest::newRow("negative sum") << -0.1 - 0.2 << -0.3;
  QTest::newRow("product") << 1.1 * 1.1 << 1.21;
  QTest::newRow("many ulps") << 100.300000000000026 << 100.3;
  QTest::newRow("largest double") << std::numeric_limits<double>::max()
                                  << std::numeric_limits<double>::max();
}

void NumbersTest::TidyTakesDustOff() {
  QFETCH(double, dusty);
  QFETCH(double, tidy);
  QVERIFY(Tidy(dusty) == tidy);
}

void NumbersTest::TidyIsTheFifteenDigitForm() {
  std::mt19937_64 random(99);
  for (int i = 0; i < 200'000; ++i) {
    const double value = RandomNumber(random);
    if (Tidy(value) != Printed15(value)) {
      QFAIL(qPrintable(QString::number(value, 'g', 17)));
    }
  }
}

void NumbersTest::ValReadsTheLeadingNumber_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<double>("value");
  QTest::newRow("empty") << "" << 0.0;
  QTest::newRow("words") << "abc 5" << 0.0;
  QTest::newRow("plain") << "12.50" << 12.5;
  QTest::newRow("blanks are passed over") << " \t1 2 . 5 " << 12.5;
  QTest::newRow("stops at a letter") << "12.5kg 7" << 12.5;
  QTest::newRow("stops at a comma") << "1,234.50" << 1.0;
  QTest::newRow("stops at a second point") << "1.2.3" << 1.2;
  QTest::newRow("stops at a later sign") << "5-3" << 5.0;
  QTest::newRow("no exponent") << "2e3" << 2.0;
  QTest::newRow("plus") << "+7" << 7.0;
  QTest::newRow("minus and blank") << "- 7" << -7.0;
  QTest::newRow("point first") << ".5" << 0.5;
  QTest::newRow("sign alone") << "-" << 0.0;
  QTest::newRow("point alone") << "." << 0.0;
  QTest::newRow("two signs") << "--5" << 0.0;
  QTest::newRow("plus and minus") << "+-5" << 0.0;
  QTest::newRow("not a number") << "nan" << 0.0;
  QTest::newRow("digits of another script") << QString(QChar(0x0967)) << 0.0;
}

void NumbersTest::ValReadsTheLeadingNumber() {
  QFETCH(QString, text);
  QTEST(Val(text), "value");
  QVERIFY(!std::signbit(Val(u"-0")));
}

void NumbersTest::ParseNumberTakesWholePlainNumbersOnly_data() {
  QTest::addColumn<QByteArray>("text");
  QTest::addColumn<bool>("taken");
  QTest::addColumn<double>("value");
  QTest::newRow("decimal") << QByteArray("-12.5") << true << -12.5;
  QTest::newRow("whole") << QByteArray("007") << true << 7.0;
  QTest::newRow("seventeen digits") << QByteArray("0.30000000000000004") << true << 0.1 + 0.2;
  QTest::newRow("empty") << QByteArray("") << false << 0.0;
  QTest::newRow("sign alone") << QByteArray("-") << false << 0.0;
  QTest::newRow("point alone") << QByteArray(".") << false << 0.0;
  QTest::newRow("blank before") << QByteArray(" 1") << false << 0.0;
  QTest::newRow("blank after") << QByteArray("1 ") << false << 0.0;
  QTest::newRow("exponent") << QByteArray("1e3") << false << 0.0;
  QTest::newRow("separator") << QByteArray("1,000") << false << 0.0;
  QTest::newRow("two points") << QByteArray("1.2.3") << false << 0.0;
  QTest::newRow("two signs") << QByteArray("--1") << false << 0.0;
  QTest::newRow("nan") << QByteArray("nan") << false << 0.0;
  QTest::newRow("inf") << QByteArray("-inf") << false << 0.0;
  QTest::newRow("hexadecimal") << QByteArray("0x10") << false << 0.0;
  QTest::newRow("too large") << QByteArray(400, '9') << false << 0.0;
}

void NumbersTest::ParseNumberTakesWholePlainNumbersOnly() {
  QFETCH(QByteArray, text);
  QFETCH(bool, taken);
  QFETCH(double, value);
  double number = 77;
  QCOMPARE(ParseNumber(std::string_view(text.constData(), text.size()), number), taken);
  QVERIFY(number == (taken ? value : 77));
}

static const quorvane::test::RegisterTest<NumbersTest> kRegistered;

#include "NumbersTest.moc"
