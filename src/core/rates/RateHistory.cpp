#include "core/rates/RateHistory.h"

#include "core/records/Query.h"
#include "core/records/Rates.h"
#include "core/text/Amounts.h"

#include <algorithm>
#include <iterator>

namespace quorvane::rates {
namespace {

using records::Action;
using records::ActionKind;

/// What a rate from before the action is to be multiplied with; 1 when the action leaves it.
double FactorOf(const Action& action) {
  constexpr double kHundred = 100;
  const double of_new = action.new_shares.Number();
  const double of_old = action.old_shares.Number();
  if (action.kind == ActionKind::kDemerger) {
    return (kHundred - action.cost_percent) / kHundred;
  }
  if (!(of_new > 0) || !(of_old > 0)) {
    return 1;
  }
  switch (action.kind) {
    case ActionKind::kSplit:
    case ActionKind::kConsolidation:
      return of_old / of_new;
    case ActionKind::kBonus:
      return of_old / (of_old + of_new);
    default:
      return 1;
  }
}

}  // namespace

RateHistory::RateHistory(database::Connection& connection, const std::set<ScripId>& scrips,
                         std::span<const positions::DatedAction> actions) {
  records::Select<records::MarketRate>(connection)
      .In(&records::MarketRate::scrip, scrips)
      .OrderBy(&records::MarketRate::id)
      .Each([this](const records::MarketRate& rate) {
        const auto day = text::ParseDmy(rate.date);
        if (day && rate.rate > 0) {
          rates_[rate.scrip].push_back({*day, rate.rate});
        }
      });
  for (auto& [scrip, rates] : rates_) {
    std::ranges::stable_sort(rates, {}, &DatedRate::date);
  }
  for (const positions::DatedAction& action : actions) {
    const double factor = FactorOf(action.terms);
    if (factor != 1 && rates_.contains(action.terms.scrip)) {
      changes_[action.terms.scrip].push_back({action.ex_day, factor});
    }
  }
  for (auto& [scrip, changes] : changes_) {
    std::ranges::stable_sort(changes, {}, &Change::ex_day);
  }
}

std::optional<DatedRate> RateHistory::NewestUpTo(ScripId scrip, text::Date day) const {
  const auto found = rates_.find(scrip);
  if (found == rates_.end()) {
    return std::nullopt;
  }
  const auto after = std::ranges::upper_bound(found->second, day, {}, &DatedRate::date);
  if (after == found->second.begin()) {
    return std::nullopt;
  }
  DatedRate newest = *std::prev(after);
  if (const auto changes = changes_.find(scrip); changes != changes_.end()) {
    for (const Change& change : changes->second) {
      if (newest.date < change.ex_day && change.ex_day <= day) {
        newest.rate = text::Tidy(newest.rate * change.factor);
      }
    }
  }
  return newest;
}

}  // namespace quorvane::rates
