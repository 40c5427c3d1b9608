#pragma once

#include "core/database/Connection.h"
#include "core/positions/Events.h"
#include "core/rates/RateBook.h"

#include <optional>
#include <set>
#include <span>
#include <unordered_map>
#include <vector>

namespace quorvane::rates {

/// The recorded rates of some scrips over all days. Shares of different days can be valued without
/// another query.
class RateHistory {
 public:
  /// Reads with one query. Rates from before a split, consolidation, bonus or demerger among
  /// `actions` are converted when they are asked for on a later day: by its ratio, of a demerger by
  /// the part of the cost that stays. Throws DatabaseError.
  RateHistory(database::Connection& connection, const std::set<ScripId>& scrips,
              std::span<const positions::DatedAction> actions);

  /// The newest rate of that day or an earlier one, for shares as they are on the day, with the day
  /// on which it was recorded; nullopt when there is none.
  std::optional<DatedRate> NewestUpTo(ScripId scrip, text::Date day) const;

 private:
  /// From the ex-day on a rate from before it is worth `factor` times as much.
  struct Change {
    text::Date ex_day;
    double factor = 1;
  };

  std::unordered_map<ScripId, std::vector<DatedRate>> rates_;  ///< by day
  std::unordered_map<ScripId, std::vector<Change>> changes_;   ///< by day
};

}  // namespace quorvane::rates
