#include "transactions/bills/StagedHoldings.h"

#include "transactions/bills/BillBoxes.h"
#include "transactions/bills/BillChecks.h"
#include "transactions/bills/LinePosting.h"

#include <algorithm>

namespace quorvane::bills {

using posting::LotSheet;

StagedHoldings::StagedHoldings(database::Connection& connection, const ClientYear& of)
    : of_(of), lots_(connection, of) {}

void StagedHoldings::Begin(AccountId account) {
  lots_.Begin(account);
  account_ = account;
}

std::optional<double> StagedHoldings::Available(LotId lot, const BillLine* replaced) const {
  const std::vector<ledger::Lot> balance = Balance();
  if (balance.empty()) {
    return std::nullopt;
  }
  const auto found = std::find_if(balance.begin(), balance.end(),
                                  [&](const ledger::Lot& held) { return held.id == lot; });
  double available = found == balance.end() ? 0 : found->quantity;
  if (replaced != nullptr && lot && replaced->lot == lot) {
    available += replaced->side == Side::kSale ? replaced->quantity : -replaced->quantity;
  }
  return std::max(0.0, ledger::SettleQuantity(available));
}

MaybeRefusal StagedHoldings::AddLine(BillLine& line) {
  return Replace(nullptr, &line);
}

MaybeRefusal StagedHoldings::ChangeLine(const BillLine& old, BillLine& line) {
  return Replace(&old, &line);
}

MaybeRefusal StagedHoldings::RemoveLine(const BillLine& old) {
  return Replace(&old, nullptr);
}

MaybeRefusal StagedHoldings::Replace(const BillLine* old, BillLine* line) {
  if (line != nullptr && line->side == Side::kSale) {
    if (auto refusal = CheckSale(line->side, line->quantity, Available(line->lot, old))) {
      return refusal;
    }
  }
  BillLine posted;
  const auto post = [&](LotSheet& sheet) {
    if (old != nullptr) {
      ReverseLines(sheet, PlaceOfLots(), {old, 1});
    }
    if (line != nullptr) {
      posted = *line;
      PostLines(sheet, PlaceOfLots(), {&posted, 1});
    }
    return sheet.CheckShortage(ControlName(BillBox::kQuantity));
  };
  MaybeRefusal refusal = lots_.Change(post);
  if (!refusal && line != nullptr) {
    *line = posted;
  }
  return refusal;
}

}  // namespace quorvane::bills
