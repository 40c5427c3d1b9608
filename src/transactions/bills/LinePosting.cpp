#include "transactions/bills/LinePosting.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace quorvane::bills {
namespace {

using posting::LotSheet;
using posting::Place;

/// Where the numbers that purchases had when they were entered lead to; none when in doubt.
using Renumbered = std::unordered_map<LotId, LotId>;

bool IsLotOf(const ledger::Lot& lot, const BillLine& line) {
  return lot.scrip == line.scrip && lot.rate == line.rate;
}

/// `named` is the lot that had the line's number before the bill was posted. Two lines may have one
/// number when another window began the scratch lots anew between them.
void PostPurchase(LotSheet& sheet, const Place& place, BillLine& line,
                  const std::optional<ledger::Lot>& named, Renumbered& renumbered) {
  const LotId lot = sheet.Add({place.of, place.account, line.scrip, line.rate}, line.quantity);
  if (line.lot) {
    const LotId meant = named && !IsLotOf(*named, line) ? LotId{} : lot;
    const auto [at, first] = renumbered.try_emplace(line.lot, meant);
    if (!first && at->second != meant) {
      at->second = LotId{};
    }
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
  // Looked up before any is posted: a number may be given to a new lot of this very bill.
  std::vector<std::optional<ledger::Lot>> named;
  named.reserve(lines.size());
  for (const BillLine& line : lines) {
    named.push_back(sheet.Find(place, line.lot));
  }
  Renumbered renumbered;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].side == Side::kPurchase) {
      PostPurchase(sheet, place, lines[i], named[i], renumbered);
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
