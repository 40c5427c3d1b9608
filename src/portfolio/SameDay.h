#pragma once

#include "core/database/Connection.h"
#include "core/records/Bill.h"
#include "core/text/Dates.h"

#include <QString>

#include <compare>
#include <map>
#include <optional>
#include <set>

namespace quorvane::portfolio {

// What is bought and sold of a scrip on one day is settled without delivery, over all bills of that
// day that one broker made for one account.

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

/// What the bills of a day bought or sold of a scrip.
struct DaySide {
  text::Shares delivered;
  text::Shares undelivered;  ///< marked as without delivery

  text::Shares All() const { return delivered + undelivered; }
};

struct DayShares {
  DaySide bought;
  DaySide sold;

  DaySide& Of(records::Side side) { return side == records::Side::kPurchase ? bought : sold; }
};

using RecordedDays = std::map<DayScrip, DayShares>;

/// What the owner's recorded bills have of each day, futures and options apart, without the bills
/// that are to be replaced.
RecordedDays ReadDays(database::Connection& connection, const DayOwner& owner,
                      const std::set<BillId>& replaced);

/// That of a scrip on a day; nothing where there is none.
DayShares SharesOf(const RecordedDays& days, const DayScrip& of);

/// Shares of new lines that are without delivery.
struct DayMatch {
  text::Shares bought;
  text::Shares sold;

  text::Shares& Of(records::Side side) { return side == records::Side::kPurchase ? bought : sold; }
};

/// How much of what is newly bought and sold is without delivery: as far as both are there, then as
/// far as recorded bills have more of the other side.
DayMatch MatchDay(const DayShares& recorded, text::Shares bought, text::Shares sold);

/// Recorded shares that become shares without delivery, because new ones are their counterpart.
struct DayMark {
  DayScrip of;
  records::Side side = records::Side::kPurchase;
  text::Shares quantity;
};

/// The mark that new lines without delivery call for; nullopt where the recorded ones are marked
/// already, or there are none.
std::optional<DayMark> MarkFor(const DayScrip& of, const DayShares& recorded,
                               const DayMatch& fresh);

/// "10.00 of ZINC ALLOYS LTD that recorded bills of 03/11/2025 bought become Non Delivery Based."
QString TextOf(const DayMark& mark, const QString& scrip_name);

}  // namespace quorvane::portfolio
