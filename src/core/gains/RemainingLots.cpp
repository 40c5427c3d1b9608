#include "core/gains/RemainingLots.h"

#include "core/records/Opening.h"
#include "core/text/Amounts.h"

#include <bit>
#include <cmath>

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
  return RemainingLots(connection, HistoryQuery{client, year, year.FirstDay(), year.LastDay()},
                       progress);
}

std::vector<RemainingLot> RemainingLots(database::Connection& connection, const HistoryQuery& query,
                                        Progress& progress) {
  History history(connection, query, progress);
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

LotIndex::LotIndex(std::span<const Purchase> purchases)
    : slots_(std::bit_ceil(purchases.size() * 2 + 2)),
      next_(purchases.size(), kEnd),
      shift_(64 - std::countr_zero(slots_.size())) {
  for (std::uint32_t row = 0; row < purchases.size(); ++row) {
    const Purchase& purchase = purchases[row];
    // A rate that is not a number equals no rate, not even itself.
    if (purchase.remaining > 0 && !std::isnan(purchase.lot_rate)) {
      Append(Find(purchase.lot_rate), purchase.lot_rate, row);
    }
  }
}

void LotIndex::Append(Slot& slot, double lot_rate, std::uint32_t row) {
  if (slot.tail == kEnd) {
    slot.rate = lot_rate;
    slot.head = row;
  } else {
    next_[slot.tail] = row;
  }
  slot.tail = row;
}

std::size_t LotIndex::Start(double lot_rate) const {
  constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
  // Adding 0 makes one of the two zeros, which are equal rates.
  const auto bits = std::bit_cast<std::uint64_t>(lot_rate + 0.0);
  return static_cast<std::size_t>((bits * kSpread) >> shift_);
}

LotIndex::Slot& LotIndex::Find(double lot_rate) {
  std::size_t at = Start(lot_rate);
  while (slots_[at].tail != kEnd && slots_[at].rate != lot_rate) {
    at = (at + 1) & (slots_.size() - 1);
  }
  return slots_[at];
}

std::uint32_t* LotIndex::Head(double lot_rate) {
  Slot& slot = Find(lot_rate);
  return slot.tail == kEnd ? nullptr : &slot.head;
}

}  // namespace quorvane::gains
