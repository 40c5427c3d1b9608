#include "core/gains/Matching.h"
#include "support/TestMain.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

using namespace quorvane::gains;
namespace text = quorvane::text;

namespace {

__extension__ using Wide = __int128;

/// Shares in millionths, a rate in hundredths of a paisa, charges in paise: whole numbers, so that
/// the model below works without rounding until the end.
struct ExactLot {
  Date date;
  std::int64_t quantity;
  std::int64_t left;
  int rate;
  std::int64_t net;
  std::int64_t charges;
};

struct ExactSale {
  Date date;
  std::int64_t quantity;
  int rate;
  std::int64_t amount;
  std::int64_t stt;
  bool transfer;
  bool listed;
};

struct Portfolio {
  std::vector<ExactLot> lots;
  std::vector<ExactSale> sales;
};

std::int64_t RoundedQuotient(Wide numerator, Wide denominator) {
  return static_cast<std::int64_t>((2 * numerator + denominator) / (2 * denominator));
}

std::int64_t ExactCost(const ExactLot& lot, std::int64_t taken, bool with_charges) {
  const Wide price = Wide{taken} * lot.net * lot.quantity;
  const Wide charges = with_charges ? Wide{taken} * lot.charges * 100'000'000 : 0;
  return RoundedQuotient(price + charges, Wide{100'000'000} * lot.quantity);
}

/// Walks every lot for every sale, in row order, as a clerk would.
std::vector<Match> SlowMatches(Portfolio portfolio, bool with_charges) {
  std::vector<Match> matches;
  for (std::uint32_t s = 0; s < portfolio.sales.size(); ++s) {
    const ExactSale& sale = portfolio.sales[s];
    std::int64_t open = sale.quantity;
    std::int64_t amount_given = 0;
    std::int64_t stt_given = 0;
    const auto record = [&](std::uint32_t lot, std::int64_t taken, std::int64_t cost) {
      const std::int64_t sold = sale.quantity - open;
      const auto amount = RoundedQuotient(Wide{sale.amount} * sold, sale.quantity) - amount_given;
      const auto stt = RoundedQuotient(Wide{sale.stt} * sold, sale.quantity) - stt_given;
      amount_given += amount;
      stt_given += stt;
      Match match{.sale = s, .purchase = lot, .quantity = static_cast<double>(taken) / 1e6};
      match.cost = cost;
      match.sale_amount = amount;
      match.stt_paid = stt;
      if (lot != Match::kNoPurchase) {
        match.kind = Classify(portfolio.lots[lot].date, sale.date);
        match.gain = sale.transfer ? 0 : amount - cost - (with_charges ? stt : 0);
      }
      if (sale.listed) {
        matches.push_back(match);
      }
    };
    for (std::uint32_t l = 0; l < portfolio.lots.size() && open > 0; ++l) {
      ExactLot& lot = portfolio.lots[l];
      if (lot.left > 0 && lot.rate == sale.rate) {
        const std::int64_t taken = std::min(open, lot.left);
        lot.left -= taken;
        open -= taken;
        record(l, taken, ExactCost(lot, taken, with_charges));
      }
    }
    if (open > 0) {
      const std::int64_t rest = std::exchange(open, 0);
      record(Match::kNoPurchase, rest, 0);
    }
  }
  return matches;
}

Portfolio RandomPortfolio(std::mt19937_64& random) {
  const auto below = [&](std::int64_t limit) {
    return static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(limit));
  };
  const auto quantity = [&] {
    return below(4) == 0 ? below(5'000'000) + 1 : (below(500) + 1) * 1'000'000;
  };
  const Date start = *text::MakeDate(1, 4, 2011);
  Portfolio portfolio;
  const auto lots = below(30);
  const auto sales = below(30);
  for (std::int64_t i = 0; i < lots; ++i) {
    const std::int64_t shares = quantity();
    portfolio.lots.push_back({.date = start + std::chrono::days(i * 20 + below(20)),
                              .quantity = shares,
                              .left = shares,
                              .rate = static_cast<int>(below(4)),
                              .net = below(20'000'000),
                              .charges = below(100'000)});
  }
  for (std::int64_t i = 0; i < sales; ++i) {
    portfolio.sales.push_back({.date = start + std::chrono::days(i * 20 + below(20)),
                               .quantity = quantity(),
                               .rate = static_cast<int>(below(4)),
                               .amount = below(1'000'000'000),
                               .stt = below(100'000),
                               .transfer = below(8) == 0,
                               .listed = below(5) != 0});
  }
  return portfolio;
}

/// Rates that differ by one unit in the last place.
double RateOf(int rate) {
  double value = 123.45;
  for (int i = 0; i < rate; ++i) {
    value = std::nextafter(value, 1000);
  }
  return value;
}

std::vector<Purchase> PurchasesOf(const Portfolio& portfolio) {
  std::vector<Purchase> purchases;
  for (const ExactLot& lot : portfolio.lots) {
    Purchase purchase{.date = lot.date, .lot_rate = RateOf(lot.rate)};
    purchase.quantity = static_cast<double>(lot.quantity) / 1e6;
    purchase.remaining = purchase.quantity;
    purchase.net = static_cast<double>(lot.net) / 1e4;
    const std::int64_t service_tax = lot.charges / 3;
    purchase.service_tax = static_cast<double>(service_tax) / 100;
    purchase.stt = static_cast<double>(lot.charges - service_tax) / 100;
    purchases.push_back(purchase);
  }
  return purchases;
}

std::vector<Sale> SalesOf(const Portfolio& portfolio) {
  std::vector<Sale> sales;
  for (const ExactSale& exact : portfolio.sales) {
    Sale sale{.date = exact.date, .lot_rate = RateOf(exact.rate)};
    sale.quantity = static_cast<double>(exact.quantity) / 1e6;
    sale.amount = static_cast<double>(exact.amount) / 100;
    sale.stt = static_cast<double>(exact.stt) / 100;
    sale.transfer = exact.transfer;
    sale.listed = exact.listed;
    sales.push_back(sale);
  }
  return sales;
}

bool Same(const Match& a, const Match& b) {
  return a.sale == b.sale && a.purchase == b.purchase && a.quantity == b.quantity &&
         a.sale_amount == b.sale_amount && a.cost == b.cost && a.stt_paid == b.stt_paid &&
         a.gain == b.gain && a.kind == b.kind;
}

QByteArray Described(const Match& match) {
  return QStringLiteral("sale %1 lot %2 quantity %3 amount %4 cost %5 stt %6 gain %7")
      .arg(match.sale)
      .arg(match.purchase)
      .arg(match.quantity)
      .arg(match.sale_amount)
      .arg(match.cost)
      .arg(match.stt_paid)
      .arg(match.gain)
      .toUtf8();
}

}  // namespace

class MatchingModelTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EveryMatchIsThatOfTheSlowModel_data();
  void EveryMatchIsThatOfTheSlowModel();
  void AverageKeepsLotsAndKindsAndAddsUp();
};

void MatchingModelTest::EveryMatchIsThatOfTheSlowModel_data() {
  QTest::addColumn<bool>("charges");
  QTest::newRow("price alone") << false;
  QTest::newRow("with charges") << true;
}

void MatchingModelTest::EveryMatchIsThatOfTheSlowModel() {
  QFETCH(bool, charges);
  std::mt19937_64 random(1904);
  for (int round = 0; round < 5000; ++round) {
    const Portfolio portfolio = RandomPortfolio(random);
    const auto expected = SlowMatches(portfolio, charges);
    auto purchases = PurchasesOf(portfolio);
    std::vector<Match> matches;
    MatchSales(purchases, SalesOf(portfolio), {.service_tax = charges, .stt = charges},
               CostBasis::kLot, matches);
    const auto difference = std::ranges::mismatch(matches, expected, Same);
    if (difference.in1 != matches.end() && difference.in2 != expected.end()) {
      QFAIL(Described(*difference.in1) + " instead of " + Described(*difference.in2));
    }
    QCOMPARE(matches.size(), expected.size());
  }
}

// Of a purchase at the average all is paid that stands in it: price, service tax, and STT when
// chosen. The costs of what left and of the rest are that, to the paisa.
void MatchingModelTest::AverageKeepsLotsAndKindsAndAddsUp() {
  constexpr ChargeChoice kStt{.service_tax = false, .stt = true};
  std::mt19937_64 random(2012);
  for (int round = 0; round < 1000; ++round) {
    Portfolio portfolio = RandomPortfolio(random);
    std::int64_t paid = 0;
    for (const ExactLot& lot : portfolio.lots) {
      paid += ExactCost(lot, lot.quantity, true);
    }
    for (ExactSale& sale : portfolio.sales) {
      sale.listed = true;
    }
    auto by_lot = PurchasesOf(portfolio);
    auto by_average = by_lot;
    std::vector<Match> lots;
    std::vector<Match> averages;
    MatchSales(by_lot, SalesOf(portfolio), {}, CostBasis::kLot, lots);
    std::int64_t costs =
        MatchSales(by_average, SalesOf(portfolio), kStt, CostBasis::kAverage, averages);
    for (const Match& match : averages) {
      costs += match.cost;
    }
    QCOMPARE(costs, paid);
    QVERIFY(std::ranges::equal(lots, averages, [](const Match& a, const Match& b) {
      return a.sale == b.sale && a.purchase == b.purchase && a.quantity == b.quantity &&
             a.kind == b.kind && a.stt_paid == b.stt_paid;
    }));
    QVERIFY(std::ranges::equal(by_lot, by_average, {}, &Purchase::remaining, &Purchase::remaining));
  }
}

static const quorvane::test::RegisterTest<MatchingModelTest> kRegistered;

#include "MatchingModelTest.moc"
