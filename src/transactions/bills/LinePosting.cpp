#include "transactions/bills/LinePosting.h"

#include <unordered_map>

namespace quorvane::bills {
namespace {

using posting::LotSheet;
using posting::Place;

/// Where the numbers that purchases had when they were entered lead to; none when in doubt.
using Renumbered = std::unordered_map<LotId, LotId>;

bool IsLotOf(const ledger::Lot& lot, const BillLine& line) {
  return lot.scrip == line.scrip && lot.rate == line.rate;
}

void PostPurchase(LotSheet& sheet, const Place& place, BillLine& line, Renumbered& renumbered) {
  const auto named = sheet.Find(place, line.lot);
  const LotId lot = sheet.Add({place.of, place.account, line.scrip, line.rate}, line.quantity);
  if (line.lot && !named) {
    renumbered.try_emplace(line.lot, lot);
  } else if (named && !IsLotOf(*named, line)) {
    renumbered.try_emplace(line.lot, LotId{});
  }
  line.lot = lot;
}

void PostSale(LotSheet& sheet, const Place& place, BillLine& line, const Renumbered& renumbered) {
  if (!line.lot) {
    return;
  }
  if (const auto found = renumbered.find(line.lot); found != renumbered.end()) {
    line.lot = found->second;
  }
  sheet.Take(place, line.lot, line.scrip, line.quantity);
}

}  // namespace

void PostLines(LotSheet& sheet, const Place& place, std::span<BillLine> lines) {
  Renumbered renumbered;
  for (BillLine& line : lines) {
    if (line.side == Side::kPurchase) {
      PostPurchase(sheet, place, line, renumbered);
    }
  }
  for (BillLine& line : lines) {
    if (line.side == Side::kSale) {
      PostSale(sheet, place, line, renumbered);
    }
  }
}

void ReverseLines(LotSheet& sheet, const Place& place, std::span<const BillLine> lines) {
  for (const BillLine& line : lines) {
    if (line.side == Side::kPurchase) {
      sheet.Take({place.of, place.account, line.scrip, line.rate}, line.quantity);
    } else if (line.lot) {
      sheet.Add(place, line.lot, line.scrip, line.quantity);
    }
  }
}

}  // namespace quorvane::bills
