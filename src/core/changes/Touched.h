#pragma once

#include "core/changes/Log.h"

#include <cstdint>
#include <map>
#include <set>
#include <span>
#include <string>
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
  bool MayHaveChanged(int key) const { return everything || went > 0 || Names(key); }

  /// It surely was, or was added.
  bool Names(int key) const;
};

/// Which records of any table one entry touched: its rows are read once for all tables.
class TouchedTables {
 public:
  /// `entry` has its rows.
  explicit TouchedTables(const Entry& entry);

  Touched Of(std::string_view table) const;

 private:
  bool everything_ = false;
  std::map<std::string, std::set<int>, std::less<>> keys_;
  std::map<std::string, Touched, std::less<>> counts_;
};

/// New entries of the log that are told to many windows. What an entry touched is read from the
/// database when somebody first asks, and only once.
class Novelties {
 public:
  /// `connection` outlives the object. The entries may be without their rows, and are numbered
  /// upwards.
  Novelties(database::Connection& connection, std::vector<Entry> entries)
      : connection_(connection), entries_(std::move(entries)) {}

  std::span<const Entry> Entries() const { return entries_; }

  /// `entry` is one of them. Throws DatabaseError.
  Touched TouchedBy(const Entry& entry, std::string_view table) const;

 private:
  database::Connection& connection_;
  std::vector<Entry> entries_;
  mutable std::map<std::int64_t, TouchedTables> read_;  ///< by the numbers of entries
};

/// `entry` has its rows.
Touched TouchedBy(const Entry& entry, std::string_view table);

/// Whether the entry is of that client or of no single one; every entry is when there is no client.
bool IsOf(const Entry& entry, ClientId client);

}  // namespace quorvane::changes
