#pragma once

#include "core/Ids.h"
#include "core/changes/Log.h"
#include "core/database/Connection.h"
#include "core/text/Dates.h"
#include "core/text/FinancialYear.h"
#include "reports/home/KeptFigures.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>

namespace quorvane::home {

/// Whose records changed between two comparisons of the kept figures with the records, by the log
/// of changes. What was written past the log it does not know: all clients are compared when
/// something was committed and the log tells of nothing, and by the first comparison of each
/// program, year and day.
class RecordsSince {
 public:
  /// For a comparison that is about to begin. Throws DatabaseError.
  Known& Begin(database::Connection& connection, text::FinancialYear year, text::Date today);

  /// The comparison came to its end.
  void End() { last_ = begun_; }

  /// Nothing is known of earlier comparisons.
  void Forget() { last_ = {}; }

 private:
  struct Look {
    std::optional<std::int64_t> entry;  ///< the last one of the log; none before the first look
    std::string common;                 ///< RecordStamps::Common
    text::FinancialYear year;
    text::Date today;
  };

  static std::optional<std::set<ClientId>> ClientsOf(database::Connection& connection,
                                                     std::int64_t after, std::int64_t last);

  Known known_;
  Look begun_;
  Look last_;
};

/// The clients whose records an entry changed, as far as holdings and gains follow from them;
/// nothing when it does not tell them. `entry` has its rows.
std::optional<std::set<ClientId>> ClientsIn(const changes::Entry& entry);

}  // namespace quorvane::home
