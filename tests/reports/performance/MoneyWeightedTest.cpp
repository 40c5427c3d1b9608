#include "reports/performance/MoneyWeighted.h"
#include "support/Test.h"

#include <QFile>
#include <QTextStream>

#include <chrono>
#include <cmath>
#include <map>

using namespace quorvane;
using namespace quorvane::performance;

namespace {

text::Date Day(const QString& dmy) {
  return *text::ParseDmy(dmy);
}

/// The flows of one set in xirr.csv, with the rate that the spreadsheet computed.
struct ComputedSet {
  std::vector<CashFlow> flows;
  double rate = 0;
};

std::map<int, ComputedSet> ComputedSets() {
  QFile file(QStringLiteral(QUORVANE_SOURCE_DIR "/tests/reports/performance/xirr.csv"));
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
    return {};
  }
  std::map<int, ComputedSet> sets;
  QTextStream lines(&file);
  lines.readLine();
  while (!lines.atEnd()) {
    const QStringList cells = lines.readLine().split(QLatin1Char(','));
    ComputedSet& set = sets[cells[0].toInt()];
    set.flows.push_back({Day(cells[1]), text::Paise::OfRupees(cells[2].toDouble())});
    if (!cells[3].isEmpty()) {
      set.rate = cells[3].toDouble();
    }
  }
  return sets;
}

/// Flows at whole years, in rupees.
std::vector<CashFlow> Yearly(const std::vector<double>& amounts) {
  std::vector<CashFlow> flows;
  for (std::size_t year = 0; year < amounts.size(); ++year) {
    flows.push_back({Day(QStringLiteral("01/04/2001")) + std::chrono::days(365 * year),
                     text::Paise::OfRupees(amounts[year])});
  }
  return flows;
}

}  // namespace

class MoneyWeightedTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AgreesWithASpreadsheet() {
    const auto sets = ComputedSets();
    QCOMPARE(sets.size(), std::size_t{50});
    constexpr double kTolerance = 1e-6;
    for (const auto& [number, set] : sets) {
      const std::vector<double> rates = MoneyWeightedReturns(set.flows);
      QVERIFY2(rates.size() == 1, qPrintable(QString::number(number)));
      QVERIFY2(std::abs(rates.front() - set.rate) < kTolerance,
               qPrintable(QStringLiteral("%1: %2").arg(number).arg(rates.front(), 0, 'g', 12)));
    }
  }

  // Worked out on paper: at 10 % and 20 % 100 - 230/1.1 + 132/1.21 and its like are nothing.
  void SaysWhenThereIsNoneOrMoreThanOne_data() {
    const test::Table<std::vector<double>, QString> row;
    using Amounts = std::vector<double>;
    row("one year", Amounts{-100, 110}, "10.0000");
    row("all but a hundredth is lost", Amounts{-100, 1}, "-99.0000");
    row("two", Amounts{-100, 230, -132}, "10.0000 20.0000");
    row("in and out and in, but one only", Amounts{-100, 50, -50, 127.6}, "10.0000");
    row("nothing came out", Amounts{-100, -10}, "");
    row("everything is lost", Amounts{-100, 0}, "");
    row("nothing flowed", Amounts{}, "");
    row("flows of a day cancel out", Amounts{0, 0}, "");
    row("above the highest", Amounts{-1, 102}, "");
    row("below the lowest", Amounts{-100000, 5}, "");
    row("never nothing", Amounts{100, -10, 100}, "");
  }
  void SaysWhenThereIsNoneOrMoreThanOne() {
    const auto [amounts, expected] = test::Table<std::vector<double>, QString>::Row();
    constexpr double kPerCent = 100;
    QStringList rates;
    for (const double rate : MoneyWeightedReturns(Yearly(amounts))) {
      rates << QString::number(rate * kPerCent, 'f', 4);
    }
    QCOMPARE(rates.join(QLatin1Char(' ')), expected);
  }

  // The terms of a century at -99 % have 200 digits.
  void ALongHistoryDoesNotOverflow() {
    std::vector<double> amounts(100, -1);
    amounts.push_back(1e-2);
    const std::vector<double> rates = MoneyWeightedReturns(Yearly(amounts));
    QCOMPARE(rates.size(), std::size_t{1});
    QCOMPARE(QString::number(rates.front(), 'f', 4), "-0.9901");
  }
};

static const test::RegisterTest<MoneyWeightedTest> kRegistered;
#include "MoneyWeightedTest.moc"
