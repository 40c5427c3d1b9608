#pragma once

#include "core/database/Connection.h"
#include "core/lookups/Directory.h"
#include "core/records/Bill.h"
#include "core/text/Dates.h"

#include <QStringList>

#include <compare>
#include <map>
#include <set>

namespace quorvane::portfolio {

// What is bought and sold of a scrip on one day with one broker is settled without delivery. Lines
// that come in together are matched with each other. Recorded bills stay as they are: where they
// have the other side, that is told.

/// Whose trades of a day are settled with each other.
struct DayOwner {
  ClientId client;
  AccountId account;
  BrokerId broker;
};

struct DayScrip {
  text::Date day;
  ScripId scrip;

  auto operator<=>(const DayScrip&) const = default;
};

struct DayShares {
  text::Shares bought;
  text::Shares sold;

  text::Shares& Of(records::Side side) { return side == records::Side::kPurchase ? bought : sold; }
};

using DayTotals = std::map<DayScrip, DayShares>;

/// What the owner's recorded bills bought and sold with delivery, futures and options apart,
/// without the bills that are to be replaced. One query.
DayTotals DeliveredInBills(database::Connection& connection, const DayOwner& owner,
                           const std::set<BillId>& replaced);

/// A sentence for each scrip and day of which new delivered shares and those of recorded bills are
/// opposite; of many the first ones and how many more there are.
QStringList OppositeInBills(const DayTotals& fresh, const DayTotals& recorded,
                            const lookups::Directory& directory);

}  // namespace quorvane::portfolio
