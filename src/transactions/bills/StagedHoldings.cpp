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

MaybeRefusal StagedHoldings::Begin(AccountId account, std::span<const BillLine> recorded,
                                   std::vector<BillLine>& lines) {
  const posting::Place place{of_, account};
  std::vector<BillLine> posted;
  MaybeRefusal refusal = lots_.Begin(account, [&](LotSheet& sheet) {
    posted = lines;
    ReverseLines(sheet, place, recorded);
    PostLines(sheet, place, posted);
    return sheet.CheckShortage(QStringLiteral("Vs1"));
  });
  if (!refusal) {
    account_ = account;
    lines = std::move(posted);
  }
  return refusal;
}

template <class Fits>
std::optional<double> StagedHoldings::SumAvailable(const BillLine* replaced,
                                                   const Fits& fits) const {
  const std::vector<ledger::Lot> balance = Balance();
  if (balance.empty()) {
    return std::nullopt;
  }
  double available = 0;
  for (const ledger::Lot& lot : balance) {
    if (!fits(lot.id, lot.scrip)) {
      continue;
    }
    double left = lot.quantity;
    if (replaced != nullptr && replaced->lot == lot.id) {
      left += replaced->side == Side::kSale ? replaced->quantity : -replaced->quantity;
    }
    available += std::max(0.0, left);
  }
  return ledger::SettleQuantity(available);
}

std::optional<double> StagedHoldings::Available(LotId lot, const BillLine* replaced) const {
  return SumAvailable(replaced, [lot](LotId id, ScripId /*of*/) { return id == lot; });
}

std::optional<double> StagedHoldings::Available(ScripId scrip, const BillLine* replaced) const {
  return SumAvailable(replaced, [scrip](LotId /*id*/, ScripId of) { return of == scrip; });
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
