#include "reports/mis/Holdings.h"

#include "core/gains/History.h"
#include "core/text/Amounts.h"
#include "core/text/Shares.h"
#include "reports/mis/MisQuery.h"

#include <algorithm>
#include <numeric>

namespace quorvane::mis {
namespace {

using gains::Purchase;
using gains::Sale;

void Add(double& sum, double quantity) {
  sum = AddShares(sum, quantity);
}

class HoldingMaker {
 public:
  HoldingMaker(std::span<Purchase> purchases, std::span<const Sale> sales,
               const reporting::Period& period)
      : purchases_(purchases), sales_(sales), period_(period) {}

  Holding Make() {
    for (const Purchase& purchase : purchases_) {
      TakeIn(purchase);
    }
    for (const Sale& sale : sales_) {
      TakeOut(sale);
    }
    MatchAll();
    KeepLots();
    std::ranges::stable_sort(holding_.movements, {}, [](const Movement& movement) {
      return std::pair(movement.date, movement.kind);
    });
    return std::move(holding_);
  }

 private:
  void TakeIn(const Purchase& purchase) {
    if (purchase.opening || purchase.date < period_.from) {
      return Add(holding_.opening, purchase.quantity);
    }
    Add(purchase.transfer ? holding_.transfer : holding_.purchase, purchase.quantity);
    holding_.movements.push_back(
        {.kind = purchase.transfer ? Movement::Kind::kTransferIn : Movement::Kind::kPurchase,
         .date = purchase.date,
         .quantity = purchase.quantity,
         .purchase_rate = purchase.lot_rate,
         .purchase_date = std::nullopt});
  }

  void TakeOut(const Sale& sale) {
    if (sale.date < period_.from) {
      Add(holding_.opening, -sale.quantity);
    } else if (sale.transfer) {
      Add(holding_.transfer, -sale.quantity);
    } else {
      Add(holding_.sale, sale.quantity);
    }
  }

  void MatchAll() {
    std::vector<gains::Match> matches;
    gains::MatchSales(purchases_, sales_, {}, gains::CostBasis::kLot, matches);
    for (const gains::Match& match : matches) {
      TakeMatch(match);
    }
  }

  void TakeMatch(const gains::Match& match) {
    const Sale& sale = sales_[match.sale];
    Movement movement{.kind = sale.transfer ? Movement::Kind::kTransferOut : Movement::Kind::kSale,
                      .date = sale.date,
                      .quantity = match.quantity,
                      .purchase_rate = std::nullopt,
                      .purchase_date = std::nullopt};
    if (match.purchase != gains::Match::kNoPurchase) {
      movement.purchase_rate = purchases_[match.purchase].lot_rate;
      movement.purchase_date = purchases_[match.purchase].date;
      movement.gain = match.gain;
      movement.gain_kind = match.kind;
      holding_.gain += match.gain;
    }
    holding_.movements.push_back(movement);
  }

  void KeepLots() {
    for (const Purchase& purchase : purchases_) {
      if (purchase.remaining > 0) {
        holding_.lots.push_back({.date = purchase.date,
                                 .quantity = purchase.remaining,
                                 .net = purchase.net,
                                 .cost = text::ToPaise(purchase.net * purchase.remaining)});
      }
    }
  }

  std::span<Purchase> purchases_;
  std::span<const Sale> sales_;
  reporting::Period period_;
  Holding holding_;
};

bool IsEmpty(const Holding& holding) {
  return holding.opening == 0 && holding.movements.empty() && holding.lots.empty();
}

}  // namespace

double AddShares(double a, double b) {
  return (text::Shares(a) + text::Shares(b)).Number();
}

double Holding::Balance() const {
  return AddShares(AddShares(opening, purchase), AddShares(transfer, -sale));
}

double Holding::Held() const {
  return std::accumulate(lots.begin(), lots.end(), 0.0, [](double sum, const HeldLot& lot) {
    return AddShares(sum, lot.quantity);
  });
}

std::int64_t Holding::Cost() const {
  return std::accumulate(lots.begin(), lots.end(), std::int64_t{0},
                         [](std::int64_t sum, const HeldLot& lot) { return sum + lot.cost; });
}

double Holding::SoldWithoutLot() const {
  return std::max(0.0, AddShares(Held(), -Balance()));
}

Holding MakeHolding(std::span<Purchase> purchases, std::span<const Sale> sales,
                    const reporting::Period& period) {
  return HoldingMaker(purchases, sales, period).Make();
}

HoldingsRead ReadHoldings(database::Connection& connection, const MisQuery& query,
                          const reporting::Period& period, Progress& progress) {
  const Selection selection(query);
  gains::History history(connection, {selection.OnlyClient(), query.year, period.from, period.to},
                         progress);
  HoldingsRead read{{}, history.Faults()};
  history.Visit([&](const gains::ScripHistory& scrip) {
    if (!selection.Has(scrip.client, scrip.account, scrip.scrip)) {
      return;
    }
    Holding holding = MakeHolding(scrip.purchases, scrip.sales, period);
    if (!IsEmpty(holding)) {
      holding.client = scrip.client;
      holding.account = scrip.account;
      holding.scrip = scrip.scrip;
      read.holdings.push_back(std::move(holding));
    }
    progress.ThrowIfCancelled();
  });
  return read;
}

}  // namespace quorvane::mis
