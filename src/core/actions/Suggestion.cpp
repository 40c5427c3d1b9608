#include "core/actions/Suggestion.h"

#include <array>

namespace quorvane::actions {
namespace {

using records::ActionKind;
using text::Shares;

/// The likelier of two that fit stands first.
constexpr std::array<Suggestion, 37> kUsual{{
    {ActionKind::kBonus, 1, 1},           {ActionKind::kSplit, 2, 1},
    {ActionKind::kSplit, 10, 1},          {ActionKind::kSplit, 5, 1},
    {ActionKind::kBonus, 1, 2},           {ActionKind::kBonus, 2, 1},
    {ActionKind::kBonus, 3, 1},           {ActionKind::kBonus, 4, 1},
    {ActionKind::kBonus, 1, 3},           {ActionKind::kBonus, 1, 4},
    {ActionKind::kBonus, 1, 5},           {ActionKind::kBonus, 2, 3},
    {ActionKind::kBonus, 3, 2},           {ActionKind::kBonus, 2, 5},
    {ActionKind::kBonus, 3, 5},           {ActionKind::kBonus, 3, 4},
    {ActionKind::kBonus, 4, 5},           {ActionKind::kBonus, 1, 10},
    {ActionKind::kBonus, 5, 1},           {ActionKind::kSplit, 4, 1},
    {ActionKind::kSplit, 3, 1},           {ActionKind::kSplit, 5, 2},
    {ActionKind::kBonus, 6, 1},           {ActionKind::kBonus, 8, 1},
    {ActionKind::kBonus, 9, 1},           {ActionKind::kBonus, 10, 1},
    {ActionKind::kSplit, 20, 1},          {ActionKind::kSplit, 50, 1},
    {ActionKind::kSplit, 100, 1},         {ActionKind::kConsolidation, 1, 10},
    {ActionKind::kConsolidation, 1, 5},   {ActionKind::kConsolidation, 1, 2},
    {ActionKind::kConsolidation, 1, 4},   {ActionKind::kConsolidation, 2, 5},
    {ActionKind::kConsolidation, 1, 20},  {ActionKind::kConsolidation, 1, 50},
    {ActionKind::kConsolidation, 1, 100},
}};

bool Fits(const Suggestion& one, Shares recorded, Shares stated) {
  constexpr std::int64_t kMillion = 1'000'000;
  constexpr std::int64_t kLargeHolding = 10;  // times the old shares
  const int added = one.kind == ActionKind::kBonus ? one.old_shares : 0;
  const text::ShareRatio ratio{Shares::OfMillionths((one.new_shares + added) * kMillion),
                               Shares::OfMillionths(one.old_shares * kMillion)};
  const Shares exact = ratio.Of(recorded);
  if (exact == stated) {
    return true;
  }
  return recorded.Millionths() >= kLargeHolding * one.old_shares * kMillion &&
         text::WholeShares(exact) == stated;
}

}  // namespace

records::Action Suggestion::Action() const {
  records::Action action;
  action.kind = kind;
  action.new_shares = Shares(new_shares);
  action.old_shares = Shares(old_shares);
  return action;
}

std::vector<Suggestion> SuggestActions(Shares recorded, Shares stated) {
  std::vector<Suggestion> fitting;
  if (recorded <= Shares() || stated <= Shares() || recorded == stated) {
    return fitting;
  }
  for (const Suggestion& one : kUsual) {
    if (Fits(one, recorded, stated)) {
      fitting.push_back(one);
    }
  }
  return fitting;
}

}  // namespace quorvane::actions
