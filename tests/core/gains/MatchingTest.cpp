#include "core/gains/Matching.h"
#include "support/TestMain.h"

#include <QTest>

#include <algorithm>
#include <limits>

using namespace quorvane::gains;
namespace text = quorvane::text;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr ChargeChoice kNoCharges{};
constexpr ChargeChoice kBothCharges{.service_tax = true, .stt = true};

Date Day(const char* dmy) {
  return *text::ParseDmy(std::string_view(dmy));
}

Purchase Bought(const char* day, double quantity, double rate, double net) {
  Purchase purchase{.date = Day(day), .quantity = quantity, .lot_rate = rate, .net = net};
  purchase.remaining = quantity;
  return purchase;
}

Sale Sold(const char* day, double quantity, double rate, double amount) {
  return {.date = Day(day), .quantity = quantity, .lot_rate = rate, .amount = amount};
}

std::vector<Match> Matched(std::vector<Purchase>& purchases, const std::vector<Sale>& sales,
                           ChargeChoice charges = kNoCharges, CostBasis basis = CostBasis::kLot) {
  std::vector<Match> matches;
  MatchSales(purchases, sales, charges, basis, matches);
  return matches;
}

std::vector<std::int64_t> Costs(const std::vector<Match>& matches) {
  std::vector<std::int64_t> costs(matches.size());
  std::ranges::transform(matches, costs.begin(), &Match::cost);
  return costs;
}

}  // namespace

Q_DECLARE_METATYPE(GainKind)

class MatchingTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void HoldingPeriodDecidesTheKind_data();
  void HoldingPeriodDecidesTheKind();
  void ChosenChargesEnterTheUnitCost_data();
  void ChosenChargesEnterTheUnitCost();
  void SaleOverTwoLotsTakesTheEarlierFirst();
  void OlderLotOfAnotherRateIsNeverUsed();
  void RatesAreComparedExactly();
  void UnmatchedRestHasNoCost();
  void SaleBeforeThePeriodUsesLotsUpUnlisted();
  void SttOfTheSaleIsDeductedByChoice();
  void PartsAddUpToTheSale();
  void CostOnHalfAPaisaRoundsUpOnce();
  void TransferOutGainsNothing();
  void FractionsLeaveNoDust();
  void AverageMovesWithPurchasesOnly();
  void AverageStartsAgainAfterAnEmptyHolding();
  void AverageKnowsOnlyWhatIsHeldAtTheSale();
  void TransfersMoveTheAverage();
  void WhatIsLeftHasTheAverageToo();
  void AbsurdNumbersDoNoHarm_data();
  void AbsurdNumbersDoNoHarm();
};

void MatchingTest::HoldingPeriodDecidesTheKind_data() {
  QTest::addColumn<QByteArray>("bought");
  QTest::addColumn<QByteArray>("sold");
  QTest::addColumn<GainKind>("kind");
  const auto row = [](const char* name, const char* bought, const char* sold, GainKind kind) {
    QTest::newRow(name) << QByteArray(bought) << QByteArray(sold) << kind;
  };
  row("same day", "15/06/2010", "15/06/2010", GainKind::kSpeculation);
  row("next day", "15/06/2010", "16/06/2010", GainKind::kShortTerm);
  row("anniversary", "15/06/2010", "15/06/2011", GainKind::kShortTerm);
  row("day after the anniversary", "15/06/2010", "16/06/2011", GainKind::kLongTerm);
  row("anniversary over a leap day", "15/06/2011", "15/06/2012", GainKind::kShortTerm);
  row("day after it", "15/06/2011", "16/06/2012", GainKind::kLongTerm);
  row("anniversary of a leap day", "29/02/2012", "28/02/2013", GainKind::kShortTerm);
  row("day after a leap day's anniversary", "29/02/2012", "01/03/2013", GainKind::kLongTerm);
  row("leap day after 28 February", "28/02/2011", "29/02/2012", GainKind::kLongTerm);
  row("anniversary after a leap day passed", "01/03/2012", "01/03/2013", GainKind::kShortTerm);
  row("sold before it was bought", "15/06/2010", "14/06/2010", GainKind::kShortTerm);
}

void MatchingTest::HoldingPeriodDecidesTheKind() {
  QFETCH(QByteArray, bought);
  QFETCH(QByteArray, sold);
  QTEST(Classify(Day(bought.constData()), Day(sold.constData())), "kind");
}

void MatchingTest::ChosenChargesEnterTheUnitCost_data() {
  QTest::addColumn<bool>("service_tax");
  QTest::addColumn<bool>("stt");
  QTest::addColumn<double>("quantity");
  QTest::addColumn<double>("cost");
  QTest::newRow("price alone") << false << false << 10.0 << 100.1;
  QTest::newRow("with service tax") << true << false << 10.0 << 100.4;
  QTest::newRow("with STT") << false << true << 10.0 << 100.3;
  QTest::newRow("with both") << true << true << 10.0 << 100.6;
  QTest::newRow("nothing to spread over") << true << true << 0.0 << 100.1;
}

void MatchingTest::ChosenChargesEnterTheUnitCost() {
  QFETCH(bool, service_tax);
  QFETCH(bool, stt);
  QFETCH(double, quantity);
  QFETCH(double, cost);
  Purchase purchase = Bought("01/04/2011", quantity, 100, 100.1);
  purchase.service_tax = 3;
  purchase.stt = 2;
  purchase.brokerage = 0.5;
  QVERIFY(UnitCost(purchase, {.service_tax = service_tax, .stt = stt}) == cost);
}

void MatchingTest::SaleOverTwoLotsTakesTheEarlierFirst() {
  std::vector purchases{Bought("01/05/2011", 10, 50, 50.5), Bought("10/05/2011", 20, 50, 51)};
  const auto matches = Matched(purchases, {Sold("20/05/2011", 15, 50, 900)});
  QCOMPARE(matches.size(), 2U);
  QCOMPARE(matches[0].purchase, 0U);
  QCOMPARE(matches[0].quantity, 10.0);
  QCOMPARE(matches[0].cost, 50500);
  QCOMPARE(matches[0].gain, 60000 - 50500);
  QCOMPARE(matches[1].purchase, 1U);
  QCOMPARE(matches[1].quantity, 5.0);
  QCOMPARE(matches[1].cost, 25500);
  QCOMPARE(matches[1].gain, 30000 - 25500);
  QCOMPARE(purchases[0].remaining, 0.0);
  QCOMPARE(purchases[1].remaining, 15.0);
}

void MatchingTest::OlderLotOfAnotherRateIsNeverUsed() {
  std::vector purchases{Bought("01/05/2010", 10, 40, 40), Bought("10/05/2011", 10, 50, 50)};
  const auto matches = Matched(purchases, {Sold("20/05/2011", 12, 50, 1200)});
  QCOMPARE(matches.size(), 2U);
  QCOMPARE(matches[0].purchase, 1U);
  QCOMPARE(matches[1].purchase, Match::kNoPurchase);
  QCOMPARE(purchases[0].remaining, 10.0);
}

void MatchingTest::RatesAreComparedExactly() {
  std::vector purchases{Bought("01/05/2010", 10, 0.1 + 0.2, 1), Bought("02/05/2010", 10, 0.3, 2),
                        Bought("03/05/2010", 10, 0.0, 3)};
  const auto matches =
      Matched(purchases, {Sold("20/05/2011", 1, 0.3, 5), Sold("20/05/2011", 1, 0.1 + 0.2, 5),
                          Sold("20/05/2011", 1, -0.0, 5), Sold("20/05/2011", 1, 0.30000001, 5)});
  QCOMPARE(matches.size(), 4U);
  QCOMPARE(matches[0].purchase, 1U);
  QCOMPARE(matches[1].purchase, 0U);
  QCOMPARE(matches[2].purchase, 2U);
  QCOMPARE(matches[3].purchase, Match::kNoPurchase);
}

void MatchingTest::UnmatchedRestHasNoCost() {
  std::vector purchases{Bought("01/05/2011", 10, 50, 50)};
  std::vector sales{Sold("20/05/2011", 15, 50, 900), Sold("21/05/2011", 5, 50, 300)};
  sales[0].stt = 1.5;
  const auto matches = Matched(purchases, sales, kBothCharges);
  QCOMPARE(matches.size(), 3U);
  QCOMPARE(matches[1].sale, 0U);
  QCOMPARE(matches[1].purchase, Match::kNoPurchase);
  QCOMPARE(matches[1].quantity, 5.0);
  QCOMPARE(matches[1].sale_amount, 30000);
  QCOMPARE(matches[1].stt_paid, 50);
  QCOMPARE(matches[1].cost, 0);
  QCOMPARE(matches[1].gain, 0);
  QCOMPARE(matches[2].sale, 1U);
  QCOMPARE(matches[2].purchase, Match::kNoPurchase);
}

void MatchingTest::SaleBeforeThePeriodUsesLotsUpUnlisted() {
  std::vector purchases{Bought("01/04/2011", 10, 50, 50), Bought("02/04/2011", 10, 50, 60)};
  std::vector sales{Sold("03/04/2011", 12, 50, 900), Sold("05/05/2011", 9, 50, 900)};
  sales[0].listed = false;
  const auto matches = Matched(purchases, sales);
  QCOMPARE(matches.size(), 2U);
  QCOMPARE(matches[0].sale, 1U);
  QCOMPARE(matches[0].purchase, 1U);
  QCOMPARE(matches[0].quantity, 8.0);
  QCOMPARE(matches[1].quantity, 1.0);
  QCOMPARE(matches[1].purchase, Match::kNoPurchase);
}

void MatchingTest::SttOfTheSaleIsDeductedByChoice() {
  for (const bool stt : {false, true}) {
    std::vector purchases{Bought("01/05/2011", 10, 50, 50)};
    purchases[0].stt = 2;
    std::vector sales{Sold("20/05/2011", 10, 50, 900)};
    sales[0].stt = 1.25;
    const auto matches = Matched(purchases, sales, {.service_tax = false, .stt = stt});
    QCOMPARE(matches[0].stt_paid, 125);
    QCOMPARE(matches[0].cost, stt ? 50200 : 50000);
    QCOMPARE(matches[0].gain, stt ? 90000 - 50200 - 125 : 40000);
  }
}

void MatchingTest::PartsAddUpToTheSale() {
  std::vector purchases{Bought("01/05/2011", 1, 50, 50), Bought("02/05/2011", 1, 50, 50),
                        Bought("03/05/2011", 1, 50, 50)};
  std::vector sales{Sold("20/05/2011", 3, 50, 100)};
  sales[0].stt = 0.05;
  const auto matches = Matched(purchases, sales);
  QCOMPARE(matches.size(), 3U);
  QCOMPARE(matches[0].sale_amount, 3333);
  QCOMPARE(matches[1].sale_amount, 3334);
  QCOMPARE(matches[2].sale_amount, 3333);
  QCOMPARE(matches[0].stt_paid + matches[1].stt_paid + matches[2].stt_paid, 5);
}

void MatchingTest::CostOnHalfAPaisaRoundsUpOnce() {
  std::vector purchases{Bought("01/05/2011", 45, 50, 1)};
  purchases[0].service_tax = 0.005;
  const auto matches =
      Matched(purchases, {Sold("20/05/2011", 45, 50, 100)}, {.service_tax = true, .stt = false});
  QCOMPARE(matches[0].cost, 4501);
}

void MatchingTest::TransferOutGainsNothing() {
  std::vector purchases{Bought("01/05/2011", 10, 50, 50.5)};
  std::vector sales{Sold("20/05/2011", 12, 50, 600)};
  sales[0].transfer = true;
  const auto matches = Matched(purchases, sales);
  QCOMPARE(matches.size(), 2U);
  QCOMPARE(matches[0].sale_amount, 50000);
  QCOMPARE(matches[0].cost, 50500);
  QCOMPARE(matches[0].gain, 0);
  QCOMPARE(matches[1].sale_amount, 10000);
  QCOMPARE(purchases[0].remaining, 0.0);
}

void MatchingTest::FractionsLeaveNoDust() {
  std::vector purchases{Bought("01/05/2011", 0.3, 50, 50), Bought("02/05/2011", 1, 50, 50)};
  const auto matches =
      Matched(purchases, {Sold("20/05/2011", 0.1, 50, 6), Sold("20/05/2011", 0.2, 50, 12),
                          Sold("21/05/2011", 1, 50, 60)});
  QCOMPARE(matches.size(), 3U);
  QCOMPARE(matches[2].purchase, 1U);
  QVERIFY(matches[2].quantity == 1.0);
  QVERIFY(purchases[0].remaining == 0.0);
}

void MatchingTest::AverageMovesWithPurchasesOnly() {
  // 100 at 10 and 50 at 13 average 11, before and after the sale of the second purchase's day.
  std::vector purchases{Bought("01/05/2011", 100, 10, 10), Bought("10/05/2011", 50, 13, 13),
                        Bought("01/06/2011", 60, 20, 20)};
  const auto matches = Matched(purchases,
                               {Sold("05/05/2011", 1, 10, 20), Sold("10/05/2011", 49, 10, 900),
                                Sold("12/05/2011", 40, 13, 900), Sold("02/06/2011", 10, 20, 900)},
                               kNoCharges, CostBasis::kAverage);
  // (99 x 10 + 50 x 13) / 149 = 11.0067..; (60 x 11.0067.. + 60 x 20) / 120 = 15.5033..
  QCOMPARE(Costs(matches), (std::vector<std::int64_t>{1000, 53933, 44027, 15503}));
  QCOMPARE(matches[2].purchase, 1U);
}

void MatchingTest::AverageStartsAgainAfterAnEmptyHolding() {
  std::vector purchases{Bought("01/05/2011", 10, 10, 10), Bought("01/06/2011", 10, 30, 30)};
  const auto matches =
      Matched(purchases, {Sold("05/05/2011", 10, 10, 200), Sold("05/06/2011", 4, 30, 200)},
              kNoCharges, CostBasis::kAverage);
  QCOMPARE(Costs(matches), (std::vector<std::int64_t>{10000, 12000}));
}

void MatchingTest::AverageKnowsOnlyWhatIsHeldAtTheSale() {
  // The first sale names a lot that comes in later: its own cost, and it is gone from the average.
  std::vector purchases{Bought("01/05/2011", 10, 10, 10), Bought("01/06/2011", 10, 30, 30)};
  const auto matches =
      Matched(purchases, {Sold("05/05/2011", 8, 30, 400), Sold("05/06/2011", 2, 30, 200)},
              kNoCharges, CostBasis::kAverage);
  // (10 x 10 + 2 x 30) / 12 x 2 = 26.67
  QCOMPARE(Costs(matches), (std::vector<std::int64_t>{24000, 2667}));
}

void MatchingTest::TransfersMoveTheAverage() {
  std::vector purchases{Bought("01/05/2011", 10, 10, 10), Bought("02/05/2011", 10, 20, 20),
                        Bought("09/05/2011", 15, 30, 30)};
  purchases[2].transfer = true;
  std::vector sales{Sold("05/05/2011", 5, 10, 50), Sold("10/05/2011", 10, 20, 500)};
  sales[0].transfer = true;
  const auto matches = Matched(purchases, sales, kNoCharges, CostBasis::kAverage);
  // The transfer out leaves 15 at 15; the transfer in makes them 30 at 22.50.
  QCOMPARE(Costs(matches), (std::vector<std::int64_t>{7500, 22500}));
  QCOMPARE(matches[0].sale_amount, 5000);
  QCOMPARE(matches[0].gain, 0);
}

void MatchingTest::WhatIsLeftHasTheAverageToo() {
  std::vector purchases{Bought("01/05/2011", 100, 10, 10), Bought("02/05/2011", 100, 20, 20),
                        Bought("01/07/2011", 10, 40, 40)};
  auto by_lot = purchases;
  const std::vector sales{Sold("05/06/2011", 50, 10, 900)};
  std::vector<Match> matches;
  // 3,400 were paid; 50 at 15 left.
  QCOMPARE(MatchSales(purchases, sales, kNoCharges, CostBasis::kAverage, matches), 265000);
  QCOMPARE(matches.front().cost, 75000);
  QCOMPARE(MatchSales(by_lot, sales, kNoCharges, CostBasis::kLot, matches), 0);
}

void MatchingTest::AbsurdNumbersDoNoHarm_data() {
  QTest::addColumn<double>("bought");
  QTest::addColumn<double>("sold");
  QTest::addColumn<double>("money");
  QTest::addColumn<int>("matches");
  QTest::newRow("nothing sold") << 10.0 << 0.0 << 5.0 << 0;
  QTest::newRow("nothing bought") << 0.0 << 10.0 << 5.0 << 1;
  QTest::newRow("less than nothing sold") << 10.0 << -3.0 << 5.0 << 0;
  QTest::newRow("less than nothing bought") << -10.0 << 3.0 << 5.0 << 1;
  QTest::newRow("dust sold") << 10.0 << 1e-9 << 5.0 << 0;
  QTest::newRow("dust bought") << 1e-9 << 1.0 << 5.0 << 1;
  QTest::newRow("no number sold") << 10.0 << kNan << 5.0 << 0;
  QTest::newRow("no number bought") << kNan << 3.0 << 5.0 << 1;
  QTest::newRow("infinite") << kInfinity << kInfinity << kInfinity << 1;
  QTest::newRow("infinite sold") << 10.0 << kInfinity << 5.0 << 2;
  QTest::newRow("huge") << 1e300 << 1e300 << -1e300 << 1;
  QTest::newRow("no number of rupees") << 10.0 << 3.0 << kNan << 1;
  QTest::newRow("infinite rupees") << 10.0 << 12.0 << -kInfinity << 2;
}

void MatchingTest::AbsurdNumbersDoNoHarm() {
  QFETCH(double, bought);
  QFETCH(double, sold);
  QFETCH(double, money);
  QFETCH(int, matches);
  for (const CostBasis basis : {CostBasis::kLot, CostBasis::kAverage}) {
    std::vector purchases{Bought("01/05/2011", bought, 50, money),
                          Bought("01/05/2011", bought, kNan, money)};
    purchases[0].stt = money;
    std::vector sales{Sold("20/05/2011", sold, 50, -money)};
    sales[0].stt = money;
    QCOMPARE(static_cast<int>(Matched(purchases, sales, kBothCharges, basis).size()), matches);
  }
}

static const quorvane::test::RegisterTest<MatchingTest> kRegistered;

#include "MatchingTest.moc"
