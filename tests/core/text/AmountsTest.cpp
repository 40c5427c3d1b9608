#include "core/text/Amounts.h"
#include "support/TestMain.h"

#include <QTest>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

using namespace quorvane::text;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// Rounds the printed 15-digit form by school rules, digit by digit.
std::string SchoolRounded(double value, int decimals) {
  char text[400];
  std::snprintf(text, sizeof text, "%.14e", std::abs(value));
  const int exponent = std::atoi(std::strchr(text, 'e') + 1);
  std::string digits = std::string(1, text[0]) + std::string(text + 2, 14);
  // Now the number is 0.<digits> x 10^(exponent + 1); write it out with zeros on both sides.
  std::string plain = std::string(400, '0') + digits + std::string(400, '0');
  const std::size_t point = std::size_t{401} + static_cast<std::size_t>(exponent);
  std::string kept = plain.substr(0, point + static_cast<std::size_t>(decimals));
  if (plain[kept.size()] >= '5') {
    std::size_t at = kept.size() - 1;
    while (kept[at] == '9') {
      kept[at--] = '0';
    }
    ++kept[at];
  }
  kept.insert(point, ".");
  kept.erase(0, std::min(kept.find_first_not_of('0'), point - 1));
  const bool zero = kept.find_first_not_of("0.") == std::string::npos;
  return value < 0 && !zero ? "-" + kept : kept;
}

/// Amounts as they come up: whole paise, sums with binary dust, ties, and anything at all.
double RandomAmount(std::mt19937_64& random) {
  const auto whole = static_cast<double>(static_cast<std::int64_t>(random() % 2'000'000'000'000) -
                                         1'000'000'000'000);
  switch (random() % 6) {
    case 0:
      return whole / 100;
    case 1:
      return whole / 1000;
    case 2:
      return (std::floor(whole / 1e6) * 10 + 5) / 1000;
    case 3:
      return std::nextafter((std::floor(whole / 1e4) * 10 + 5) / 1000, whole);
    case 4:
      return whole / 7919 * 1e-3;
    default: {
      const double any = std::bit_cast<double>(random());
      return std::isfinite(any) && std::abs(any) < 1e300 ? any : whole;
    }
  }
}

std::string Amount(double value) {
  std::string text;
  AppendAmount(text, value);
  return text;
}

}  // namespace

class AmountsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AmountRoundsHalfAwayFromZeroOnItsDecimalForm_data();
  void AmountRoundsHalfAwayFromZeroOnItsDecimalForm();
  void EveryAmountAgreesWithItsDigits();
  void MasksDifferInDecimalsAndGroups_data();
  void MasksDifferInDecimalsAndGroups();
  void PaiseAreWrittenAsRupees_data();
  void PaiseAreWrittenAsRupees();
  void PaiseOfWhatIsNoAmountStayInRange_data();
  void PaiseOfWhatIsNoAmountStayInRange();
  void RoundedAmountIsTheDoubleOfItsText();
};

void AmountsTest::AmountRoundsHalfAwayFromZeroOnItsDecimalForm_data() {
  QTest::addColumn<double>("value");
  QTest::addColumn<QString>("text");
  QTest::addColumn<qint64>("paise");
  QTest::newRow("tie whose double lies below") << 2.675 << "2.68" << qint64{268};
  QTest::newRow("negative tie") << -1.005 << "-1.01" << qint64{-101};
  QTest::newRow("tie whose double is exact") << 0.125 << "0.13" << qint64{13};
  QTest::newRow("next double below a tie counts as the tie")
      << std::nextafter(0.125, 0) << "0.13" << qint64{13};
  QTest::newRow("below a tie in the 15th digit") << 2.67499999999999 << "2.67" << qint64{267};
  QTest::newRow("dust is nothing") << 1e-9 << "0.00" << qint64{0};
  QTest::newRow("negative dust has no sign") << -0.0049999 << "0.00" << qint64{0};
  QTest::newRow("negative zero has no sign") << -0.0 << "0.00" << qint64{0};
  QTest::newRow("half a paisa") << 0.005 << "0.01" << qint64{1};
  QTest::newRow("minus half a paisa") << -0.005 << "-0.01" << qint64{-1};
  QTest::newRow("carry through all digits") << 999.995 << "1000.00" << qint64{100000};
  QTest::newRow("sum with dust") << 0.1 + 0.2 << "0.30" << qint64{30};
  QTest::newRow("smallest double") << 5e-324 << "0.00" << qint64{0};
  QTest::newRow("tie in the 15th digit")
      << 123456789012.005 << "123456789012.01" << qint64{12345678901201};
  QTest::newRow("largest exact amount")
      << 89999999999999.9 << "89999999999999.90" << qint64{8999999999999990};
}

void AmountsTest::AmountRoundsHalfAwayFromZeroOnItsDecimalForm() {
  QFETCH(double, value);
  QFETCH(QString, text);
  QFETCH(qint64, paise);
  QCOMPARE(FormatAmount(value), text);
  QCOMPARE(FormatSummary(value), text);
  QCOMPARE(QString::fromStdString(Amount(value)), text);
  QCOMPARE(qint64{ToPaise(value)}, paise);
}

void AmountsTest::EveryAmountAgreesWithItsDigits() {
  std::mt19937_64 random(20111201);
  for (int i = 0; i < 300'000; ++i) {
    const double value = RandomAmount(random);
    const std::string expected = SchoolRounded(value, 2);
    if (Amount(value) != expected ||
        FormatPercent(value).toStdString() != SchoolRounded(value, 3)) {
      QFAIL(qPrintable(QString("%1: %2").arg(value, 0, 'g', 17).arg(Amount(value).c_str())));
    }
    std::string digits = expected;
    std::erase(digits, '.');
    if (std::abs(value) < 9e13 &&
        std::to_string(ToPaise(value)) != std::to_string(std::stoll(digits))) {
      QFAIL(qPrintable(QString("%1: %2 paise").arg(value, 0, 'g', 17).arg(ToPaise(value))));
    }
  }
}

void AmountsTest::MasksDifferInDecimalsAndGroups_data() {
  QTest::addColumn<double>("value");
  QTest::addColumn<QString>("percent");
  QTest::addColumn<QString>("thousands");
  QTest::addColumn<QString>("indian");
  QTest::newRow("zero") << 0.0 << "0.000"
                        << ".00"
                        << "0.00";
  QTest::newRow("below one") << -0.0255 << "-0.026"
                             << "-.03"
                             << "-0.03";
  QTest::newRow("three digits") << 999.994 << "999.994"
                                << "999.99"
                                << "999.99";
  QTest::newRow("carry makes a group") << 999.995 << "999.995"
                                       << "1,000.00"
                                       << "1,000.00";
  QTest::newRow("minus is no digit") << -100.0 << "-100.000"
                                     << "-100.00"
                                     << "-100.00";
  QTest::newRow("six digits") << 123456.0 << "123456.000"
                              << "123,456.00"
                              << "1,23,456.00";
  QTest::newRow("crores") << -12345678.9 << "-12345678.900"
                          << "-12,345,678.90"
                          << "-1,23,45,678.90";
  QTest::newRow("beyond integers") << 1e21 << "1000000000000000000000.000"
                                   << "1,000,000,000,000,000,000,000.00"
                                   << "1,00,00,00,00,00,00,00,00,00,000.00";
  QTest::newRow("infinite") << -kInfinity << "-inf"
                            << "-inf"
                            << "-inf";
}

void AmountsTest::MasksDifferInDecimalsAndGroups() {
  QFETCH(double, value);
  QTEST(FormatPercent(value), "percent");
  QTEST(FormatThousands(value), "thousands");
  QTEST(FormatIndian(value), "indian");
}

void AmountsTest::PaiseAreWrittenAsRupees_data() {
  QTest::addColumn<qint64>("paise");
  QTest::addColumn<QString>("text");
  QTest::newRow("zero") << qint64{0} << "0.00";
  QTest::newRow("one paisa") << qint64{1} << "0.01";
  QTest::newRow("minus one paisa") << qint64{-1} << "-0.01";
  QTest::newRow("a rupee") << qint64{100} << "1.00";
  QTest::newRow("beyond a double") << qint64{9007199254740993} << "90071992547409.93";
  QTest::newRow("least") << std::numeric_limits<qint64>::min() << "-92233720368547758.08";
}

void AmountsTest::PaiseAreWrittenAsRupees() {
  QFETCH(qint64, paise);
  std::string text = "x";
  AppendPaise(text, paise);
  QTEST(QString::fromStdString(text.substr(1)), "text");
}

void AmountsTest::PaiseOfWhatIsNoAmountStayInRange_data() {
  QTest::addColumn<double>("value");
  QTest::addColumn<qint64>("paise");
  QTest::newRow("no number") << kNan << qint64{0};
  QTest::newRow("infinite") << kInfinity << qint64{1'000'000'000'000'000'000};
  QTest::newRow("minus infinite") << -kInfinity << qint64{-1'000'000'000'000'000'000};
  QTest::newRow("huge") << -1e300 << qint64{-1'000'000'000'000'000'000};
}

void AmountsTest::PaiseOfWhatIsNoAmountStayInRange() {
  QFETCH(double, value);
  QTEST(qint64{ToPaise(value)}, "paise");
}

void AmountsTest::RoundedAmountIsTheDoubleOfItsText() {
  std::mt19937_64 random(7);
  for (int i = 0; i < 100'000; ++i) {
    const double value = RandomAmount(random);
    if (RoundAmount(value) != std::strtod(Amount(value).c_str(), nullptr)) {
      QFAIL(qPrintable(QString::number(value, 'g', 17)));
    }
  }
  QVERIFY(std::isnan(RoundAmount(kNan)));
  QCOMPARE(FromPaise(-101), -1.01);
}

static const quorvane::test::RegisterTest<AmountsTest> kRegistered;

#include "AmountsTest.moc"
