#include "core/gains/Matching.h"
#include "support/Test.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using namespace quorvane::gains;
namespace test = quorvane::test;
namespace text = quorvane::text;

namespace {

constexpr ChargeChoice kNoCharges{};

Date Day(const char* dmy) {
  return *text::ParseDmy(std::string_view(dmy));
}

Purchase Bought(const char* day, double quantity, double rate, double net) {
  Purchase purchase{.date = Day(day), .entered = Day(day), .quantity = quantity};
  purchase.lot_rate = rate;
  purchase.net = net;
  purchase.remaining = quantity;
  return purchase;
}

Sale Sold(const char* day, double quantity, double rate, double amount) {
  return {.date = Day(day), .quantity = quantity, .lot_rate = rate, .amount = amount};
}

/// Lots and sales of whole and broken shares, at rates that differ by one unit in the last place.
struct Portfolio {
  std::vector<Purchase> purchases;
  std::vector<Sale> sales;
  std::int64_t paid = 0;  ///< in paise, with all charges
};

Portfolio RandomPortfolio(std::mt19937_64& random) {
  const auto below = [&](std::int64_t limit) {
    return static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(limit));
  };
  const auto millionths = [&] {
    return below(4) == 0 ? below(5'000'000) + 1 : (below(500) + 1) * 1'000'000;
  };
  const auto rate = [&] { return below(2) == 0 ? 123.45 : std::nextafter(123.45, 1000); };
  const auto day = [&](std::int64_t n) {
    return *text::MakeDate(1, 4, 2011) + std::chrono::days(n * 20 + below(20));
  };
  Portfolio portfolio;
  for (std::int64_t i = 0, lots = below(30); i < lots; ++i) {
    const std::int64_t shares = millionths();
    const std::int64_t net = below(20'000'000);
    const std::int64_t service_tax = below(30'000);
    const std::int64_t stt = below(70'000);
    Purchase purchase;
    purchase.date = purchase.entered = day(i);
    purchase.lot_rate = rate();
    purchase.quantity = purchase.remaining = static_cast<double>(shares) / 1e6;
    purchase.net = static_cast<double>(net) / 1e4;
    purchase.service_tax = static_cast<double>(service_tax) / 100;
    purchase.stt = static_cast<double>(stt) / 100;
    portfolio.purchases.push_back(purchase);
    portfolio.paid += (shares * net + 50'000'000) / 100'000'000 + service_tax + stt;
  }
  for (std::int64_t i = 0, sales = below(30); i < sales; ++i) {
    Sale sale{.date = day(i), .lot_rate = rate()};
    sale.quantity = static_cast<double>(millionths()) / 1e6;
    sale.amount = static_cast<double>(below(1'000'000'000)) / 100;
    sale.stt = static_cast<double>(below(100'000)) / 100;
    sale.transfer = below(8) == 0;
    sale.listed = true;
    portfolio.sales.push_back(sale);
  }
  return portfolio;
}

std::vector<Match> Matched(std::vector<Purchase>& purchases, const std::vector<Sale>& sales,
                           ChargeChoice charges = kNoCharges, CostBasis basis = CostBasis::kLot) {
  std::vector<Match> matches;
  MatchSales(purchases, sales, charges, basis, matches);
  return matches;
}

}  // namespace

class MatchingTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void HoldingPeriodDecidesTheKind_data() {
    const test::Table<QByteArray, QByteArray, GainKind> row;
    row("same day", "15/06/2010", "15/06/2010", GainKind::kSpeculation);
    row("day after the anniversary", "15/06/2010", "16/06/2011", GainKind::kLongTerm);
    row("anniversary of a leap day", "29/02/2012", "28/02/2013", GainKind::kShortTerm);
    row("day after a leap day's anniversary", "29/02/2012", "01/03/2013", GainKind::kLongTerm);
    row("leap day after 28 February", "28/02/2011", "29/02/2012", GainKind::kLongTerm);
    row("sold before it was bought", "15/06/2010", "14/06/2010", GainKind::kShortTerm);
  }
  void HoldingPeriodDecidesTheKind() {
    const auto [bought, sold, kind] = test::Table<QByteArray, QByteArray, GainKind>::Row();
    QCOMPARE(Classify(Day(bought.constData()), Day(sold.constData())), kind);
  }

  void CostOnHalfAPaisaRoundsUpOnce() {
    std::vector purchases{Bought("01/05/2011", 45, 50, 1)};
    purchases[0].service_tax = 0.005;
    const auto matches =
        Matched(purchases, {Sold("20/05/2011", 45, 50, 100)}, {.service_tax = true, .stt = false});
    QCOMPARE(matches[0].cost, 4501);
  }

  void AverageIsThatOfWhatIsHeld_data() {
    const test::Table<std::vector<Purchase>, std::vector<Sale>, std::vector<std::int64_t>> row;
    // 100 at 10 and 50 at 13 average 11, before and after the sale of the second purchase's day:
    // (99 x 10 + 50 x 13) / 149 = 11.0067..; (60 x 11.0067.. + 60 x 20) / 120 = 15.5033..
    row("moves with purchases only",
        {Bought("01/05/2011", 100, 10, 10), Bought("10/05/2011", 50, 13, 13),
         Bought("01/06/2011", 60, 20, 20)},
        {Sold("05/05/2011", 1, 10, 20), Sold("10/05/2011", 49, 10, 900),
         Sold("12/05/2011", 40, 13, 900), Sold("02/06/2011", 10, 20, 900)},
        {1000, 53933, 44027, 15503});
    row("starts again after an empty holding",
        {Bought("01/05/2011", 10, 10, 10), Bought("01/06/2011", 10, 30, 30)},
        {Sold("05/05/2011", 10, 10, 200), Sold("05/06/2011", 4, 30, 200)}, {10000, 12000});
    // The first sale names a lot that comes in later: its own cost, and it is gone from the
    // average, (10 x 10 + 2 x 30) / 12 x 2 = 26.67.
    row("knows no purchase before it comes in",
        {Bought("01/05/2011", 10, 10, 10), Bought("01/06/2011", 10, 30, 30)},
        {Sold("05/05/2011", 8, 30, 400), Sold("05/06/2011", 2, 30, 200)}, {24000, 2667});
    // The transfer out leaves 15 at 15; the transfer in makes them 30 at 22.50.
    Purchase in = Bought("09/05/2011", 15, 30, 30);
    in.transfer = true;
    Sale out = Sold("05/05/2011", 5, 10, 50);
    out.transfer = true;
    row("moves with transfers",
        {Bought("01/05/2011", 10, 10, 10), Bought("02/05/2011", 10, 20, 20), in},
        {out, Sold("10/05/2011", 10, 20, 500)}, {7500, 22500});
  }
  void AverageIsThatOfWhatIsHeld() {
    auto [purchases, sales, costs] =
        test::Table<std::vector<Purchase>, std::vector<Sale>, std::vector<std::int64_t>>::Row();
    const auto matches = Matched(purchases, sales, kNoCharges, CostBasis::kAverage);
    std::vector<std::int64_t> found(matches.size());
    std::ranges::transform(matches, found.begin(), &Match::cost);
    QCOMPARE(found, costs);
  }

  void WhatIsLeftHasTheAverageToo() {
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

  // Of a purchase at the average all is paid that stands in it: price, service tax, and STT when
  // chosen. The costs of what left and of the rest are that, to the paisa.
  void AverageKeepsLotsAndKindsAndAddsUp() {
    constexpr ChargeChoice kStt{.service_tax = false, .stt = true};
    std::mt19937_64 random(2012);
    for (int round = 0; round < 1000; ++round) {
      const auto [purchases, sales, paid] = RandomPortfolio(random);
      auto by_lot = purchases;
      auto by_average = purchases;
      const std::vector<Match> lots = Matched(by_lot, sales);
      std::vector<Match> averages;
      std::int64_t costs = MatchSales(by_average, sales, kStt, CostBasis::kAverage, averages);
      for (const Match& match : averages) {
        costs += match.cost;
      }
      QCOMPARE(costs, paid);
      QVERIFY(std::ranges::equal(lots, averages, [](const Match& a, const Match& b) {
        return a.sale == b.sale && a.purchase == b.purchase && a.quantity == b.quantity &&
               a.kind == b.kind && a.stt_paid == b.stt_paid;
      }));
      QVERIFY(
          std::ranges::equal(by_lot, by_average, {}, &Purchase::remaining, &Purchase::remaining));
    }
  }
};

static const quorvane::test::RegisterTest<MatchingTest> kRegistered;
#include "MatchingTest.moc"
