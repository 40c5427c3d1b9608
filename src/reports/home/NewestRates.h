#pragma once

#include "core/database/Connection.h"
#include "core/rates/RateBook.h"

#include <optional>
#include <set>
#include <unordered_map>

namespace quorvane::home {

using text::Date;

/// A scrip's newest rate and the one of the day before it that has any.
struct RatePair {
  rates::DatedRate newest;
  std::optional<rates::DatedRate> before = std::nullopt;
};

struct NewestRates {
  std::optional<Date> market_day;  ///< the newest day with rates of any scrip
  std::unordered_map<ScripId, RatePair> of;
};

/// The rates of those scrips up to `today`; a scrip without any is left out. Reads the last days
/// whole, and only for the scrips that had no rates then what is older. Throws DatabaseError.
NewestRates ReadNewestRates(database::Connection& connection, const std::set<ScripId>& scrips,
                            Date today);

}  // namespace quorvane::home
