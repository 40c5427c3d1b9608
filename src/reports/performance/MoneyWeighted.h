#pragma once

#include "core/text/Dates.h"
#include "core/text/Paise.h"

#include <span>
#include <vector>

namespace quorvane::performance {

/// Money on a day: below zero what was put in, above zero what came out.
struct CashFlow {
  text::Date day;
  text::Paise amount;
};

/// The lowest and the highest annual return that is looked for: -99.99 % and 10,000 %.
inline constexpr double kLowestReturn = -0.9999;
inline constexpr double kHighestReturn = 100;

/// The money-weighted annual returns of the flows, as fractions (0.1 is 10 %), the lowest first:
/// the rates at which the flows, discounted by whole days over 365, add up to nothing (XIRR). One
/// is the rule. There is none when money only went in or only came out, or when the rate lies
/// outside the two bounds; several when money goes in and out in turn and more than one rate solves
/// it. The flows may have any order.
std::vector<double> MoneyWeightedReturns(std::span<const CashFlow> flows);

}  // namespace quorvane::performance
