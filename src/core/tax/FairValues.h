#pragma once

#include "core/Ids.h"
#include "core/Result.h"
#include "core/database/Transaction.h"
#include "core/text/Dates.h"

#include <set>
#include <unordered_map>
#include <vector>

namespace quorvane::tax {

/// The day whose highest price may stand in the place of the cost of shares acquired up to it.
inline constexpr text::Date kFairValueDay{std::chrono::year{2018} / std::chrono::January / 31};

/// Highest prices quoted on kFairValueDay, rupees a share, as the share was on that day: splits and
/// bonuses that came later are not in it. A scrip that is not in it has none.
using FairValues = std::unordered_map<ScripId, double>;

FairValues ReadFairValues(database::Connection& connection);

/// Refuses what is not above 0, and more than any share is worth.
MaybeRefusal CheckFairValue(double rate);

// Rates that were checked. One takes the place of an earlier one of its scrip; scrips that are not
// named keep theirs.
void SaveFairValue(database::Transaction& transaction, ScripId scrip, double rate);
void SaveFairValues(database::Transaction& transaction, const FairValues& values);

void RemoveFairValue(database::Transaction& transaction, ScripId scrip);
void RemoveFairValues(database::Transaction& transaction, const std::vector<ScripId>& scrips);

/// The scrips of which shares were acquired up to kFairValueDay, by opening stock, by a bill, or by
/// a corporate action that keeps the day; F&O is left out. Of one client, also what reached it by
/// transfers from clients who had acquired it by then. A constant number of queries.
std::set<ScripId> ScripsAcquiredByFairValueDay(database::Connection& connection);
std::set<ScripId> ScripsAcquiredByFairValueDay(database::Connection& connection, ClientId client);

}  // namespace quorvane::tax
