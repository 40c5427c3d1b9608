#pragma once

#include "portfolio/trades/TradePlan.h"

#include <span>
#include <vector>

namespace quorvane::portfolio {

// Lines without charges out of trades.

/// Lines of the trades, in the order of day, exchange, bill and trade. `scrips` has for each scrip
/// of the file the first place that means the same scrip; doubled trades make lines of their own.
std::vector<TradeLine> JoinedLines(const TradeFile& file, std::span<const std::uint32_t> scrips,
                                   const std::vector<bool>& doubled, TradePlan::Fills fills);

/// Marks what was bought and sold on one day as without delivery, the earliest trades first, and
/// divides the lines of which that is a part. Lines that were probably entered by hand are matched
/// with each other alone. What is delivered trade by trade, and what was taken in before, is passed
/// over.
std::vector<TradeLine> WithoutDelivery(std::vector<TradeLine> lines, const TradeFile& file);

}  // namespace quorvane::portfolio
