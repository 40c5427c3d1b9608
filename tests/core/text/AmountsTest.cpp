#include "core/text/Amounts.h"
#include "support/Test.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

using namespace quorvane::text;
namespace test = quorvane::test;

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
  void AmountRoundsHalfAwayFromZeroOnItsDecimalForm_data() {
    const test::Table<double, QString, qint64> row;
    row("tie whose double lies below", 2.675, "2.68", qint64{268});
    row("negative tie", -1.005, "-1.01", qint64{-101});
    row("next double below a tie counts as the tie", std::nextafter(0.125, 0), "0.13", qint64{13});
    row("dust is nothing", 1e-9, "0.00", qint64{0});
    row("negative zero has no sign", -0.0, "0.00", qint64{0});
    row("carry through all digits", 999.995, "1000.00", qint64{100000});
    row("tie in the 15th digit", 123456789012.005, "123456789012.01", qint64{12345678901201});
    row("largest exact amount", 89999999999999.9, "89999999999999.90", qint64{8999999999999990});
  }
  void AmountRoundsHalfAwayFromZeroOnItsDecimalForm() {
    const auto [value, text, paise] = test::Table<double, QString, qint64>::Row();
    QCOMPARE(FormatAmount(value), text);
    QCOMPARE(FormatSummary(value), text);
    QCOMPARE(QString::fromStdString(Amount(value)), text);
    QCOMPARE(qint64{ToPaise(value)}, paise);
  }

  void EveryAmountAgreesWithItsDigits() {
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

  void MasksDifferInDecimalsAndGroups_data() {
    const test::Table<double, QString, QString> row;
    row("below one", -0.0255, "-0.026", "-.03");
    row("carry makes a group", 999.995, "999.995", "1,000.00");
    row("crores", -12345678.9, "-12345678.900", "-12,345,678.90");
    row("beyond integers", 1e21, "1000000000000000000000.000", "1,000,000,000,000,000,000,000.00");
    row("infinite", -kInfinity, "-inf", "-inf");
  }
  void MasksDifferInDecimalsAndGroups() {
    const auto [value, percent, thousands] = test::Table<double, QString, QString>::Row();
    QCOMPARE(FormatPercent(value), percent);
    QCOMPARE(FormatThousands(value), thousands);
  }

  void PaiseAreWrittenAsRupees_data() {
    const test::Table<qint64, QString> row;
    row("minus one paisa", qint64{-1}, "-0.01");
    row("beyond a double", qint64{9007199254740993}, "90071992547409.93");
    row("least", std::numeric_limits<qint64>::min(), "-92233720368547758.08");
  }
  void PaiseAreWrittenAsRupees() {
    const auto [paise, rupees] = test::Table<qint64, QString>::Row();
    std::string text = "x";
    AppendPaise(text, paise);
    QCOMPARE(QString::fromStdString(text), 'x' + rupees);
  }

  void PaiseOfWhatIsNoAmountStayInRange_data() {
    const test::Table<double, qint64> row;
    row("no number", kNan, qint64{0});
    row("infinite", kInfinity, qint64{1'000'000'000'000'000'000});
    row("minus infinite", -kInfinity, qint64{-1'000'000'000'000'000'000});
  }
  void PaiseOfWhatIsNoAmountStayInRange() {
    const auto [value, paise] = test::Table<double, qint64>::Row();
    QCOMPARE(qint64{ToPaise(value)}, paise);
  }

  void RoundedAmountIsTheDoubleOfItsText() {
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
};

static const quorvane::test::RegisterTest<AmountsTest> kRegistered;
#include "AmountsTest.moc"
