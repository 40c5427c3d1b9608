#pragma once

#include "core/changes/Log.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace quorvane::changes {

/// Which records of a table an entry of the log changed. An entry may be of many: a trade book
/// brings bills, and the delete of a broker takes bills along.
struct Touched {
  std::vector<int> keys;    ///< of the records that its rows name, each once
  std::int64_t went = 0;    ///< rows that it only counts
  std::int64_t came = 0;    ///< the same
  bool everything = false;  ///< each record may be another one, as after a restored backup

  bool IsNothing() const { return keys.empty() && !IsUnnamed(); }

  /// It does not name all the records.
  bool IsUnnamed() const { return everything || went + came > 0; }

  /// Whether a record that was there before may have been changed or deleted.
  bool MayHaveChanged(int key) const;
};

/// `entry` has its rows.
Touched TouchedBy(const Entry& entry, std::string_view table);

/// Reads the rows of an entry that was listed without them.
Touched TouchedBy(database::Connection& connection, const Entry& listed, std::string_view table);

/// Whether the entry is of that client or of no single one; every entry is when there is no client.
bool IsOf(const Entry& entry, ClientId client);

}  // namespace quorvane::changes
