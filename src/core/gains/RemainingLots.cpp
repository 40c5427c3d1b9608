#include "core/gains/RemainingLots.h"

#include "core/records/Opening.h"
#include "core/text/Amounts.h"

namespace quorvane::gains {
namespace {

double PartOf(double whole, const Purchase& purchase) {
  return purchase.quantity == 0 ? 0
                                : text::RoundAmount(whole * purchase.remaining / purchase.quantity);
}

RemainingLot LotOf(const ScripHistory& history, const Purchase& purchase) {
  RemainingLot lot;
  lot.client = history.client;
  lot.account = history.account;
  lot.scrip = history.scrip;
  lot.date = purchase.date;
  lot.quantity = purchase.remaining;
  lot.rate = purchase.lot_rate;
  lot.brokerage = purchase.brokerage;
  lot.total = records::OpeningTotal(text::Shares(purchase.remaining), purchase.lot_rate,
                                    purchase.brokerage);
  lot.service_tax = PartOf(purchase.service_tax, purchase);
  lot.stt = PartOf(purchase.stt, purchase);
  lot.fo = purchase.fo;
  return lot;
}

}  // namespace

std::vector<RemainingLot> RemainingLots(database::Connection& connection,
                                        std::optional<ClientId> client, text::FinancialYear year,
                                        Progress& progress) {
  History history(connection, {client, year, year.FirstDay(), year.LastDay()}, progress);
  std::vector<RemainingLot> lots;
  std::vector<Match> matches;
  history.Visit([&](const ScripHistory& scrip) {
    matches.clear();
    MatchSales(scrip.purchases, scrip.sales, {}, CostBasis::kLot, matches);
    for (const Purchase& purchase : scrip.purchases) {
      if (purchase.remaining > 0) {
        lots.push_back(LotOf(scrip, purchase));
      }
    }
  });
  return lots;
}

}  // namespace quorvane::gains
