#pragma once

#include "core/Ids.h"
#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/text/Dates.h"
#include "core/text/FinancialYear.h"
#include "core/text/Paise.h"
#include "core/text/Shares.h"

#include <QDateTime>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace quorvane::home {

using text::Date;
using text::Paise;
using text::Shares;

/// What a client gained in a financial year by sales, as the capital-gain statement without charges
/// has it.
struct Gains {
  Paise long_term = {};
  Paise short_term = {};
  Paise speculation = {};

  Paise Total() const { return long_term + short_term + speculation; }
};

/// What an earlier comparison of the kept figures with the records has left, and what is known to
/// have changed since. Without `changed` nothing is known.
struct Known {
  std::optional<std::set<ClientId>> changed = {};  ///< whose records
  std::map<ClientId, std::string> stamps = {};     ///< of each client's own records
};

/// Brings the kept figures up to date: each client's holdings of `today`, read over all years, and
/// the gains of a year. Clients whose records did not change since are left as they are. Works in
/// small steps, for a connection of its own in the background: `committed` is called after each
/// transaction, at most about once a second. With `known` only the changed clients and everyone to
/// whom shares of theirs came are compared; it takes in what was read. Returns how many clients
/// were recomputed. Throws DatabaseError and Cancellation; what was committed stays.
int RefreshFigures(
    database::Connection& connection, text::FinancialYear year, Date today, Progress& progress,
    const std::function<void()>& committed = [] {}, Known* known = nullptr);

/// When RefreshFigures last came to its end; none when it never did. In local time.
std::optional<QDateTime> LastRefresh(database::Connection& connection);

}  // namespace quorvane::home
