#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/positions/Events.h"
#include "core/positions/Layer.h"
#include "core/records/Faults.h"

#include <optional>
#include <set>
#include <span>
#include <vector>

namespace quorvane::positions {

/// Everything that was ever recorded, read as one history over all years: what is held, since when
/// and at what cost, and what every sale brought.
///
/// Within an account shares leave first in, first out by the day on which they entered it, not by
/// the lot that a sale names. Purchases and sales of one day without delivery are matched with each
/// other first. A transfer takes quantity, cost and day of acquisition along. Corporate actions
/// come before the trades of their ex-day, and apply to every account that holds the scrip then.
/// Futures and options are kept apart and have no corporate actions.
struct Positions {
  std::vector<Holding> holdings;        ///< by client, account and scrip
  std::vector<Piece> pieces;            ///< by client, account, scrip and day
  std::vector<Difference> differences;  ///< by client, year, account and scrip
  std::vector<Shortage> shortages;      ///< in the same order as the pieces
  std::vector<Move> moves;              ///< in no order
  std::vector<Balance> balances;        ///< of the days that were asked for, in no order
  records::Faults faults;               ///< records that could not count as they are written
};

/// What is to be read.
struct PositionsQuery {
  std::optional<ClientId> client{};  ///< with those whose shares came to the client; else all
  std::set<ClientId> clients = {};   ///< several, in place of `client`
  std::optional<ScripId> scrip{};    ///< with those that its shares came from or went to; else all
  Date to = Date::max();             ///< nothing after it counts
};

/// The pure computation; `list` is sorted by it. Holdings and pieces of all clients in the list.
/// `days`, ascending, are those whose balances are wanted. Linear in the number of events, apart
/// from a sort.
Positions Compute(EventList& list, Date to = Date::max(), std::span<const Date> days = {});

/// Reads with one query a table and computes. Only holdings, pieces and differences of the wanted
/// client are returned. Throws DatabaseError and Cancellation.
Positions ReadPositions(database::Connection& connection, const PositionsQuery& query,
                        Progress& progress);

}  // namespace quorvane::positions
