#pragma once

#include "core/rates/RateBook.h"

#include <unordered_map>

namespace quorvane::mis {

/// The newest rate of each scrip up to some day, with the day that it is of.
using MarketRates = std::unordered_map<ScripId, rates::DatedRate>;

}  // namespace quorvane::mis
