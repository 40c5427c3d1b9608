#pragma once

#include "core/Result.h"
#include "core/changes/Changes.h"
#include "core/database/Connection.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::database {
class Transaction;
}

namespace quorvane::changes {

/// An entry of the log of changes (table ChangeLog). Entries are numbered without gaps. Each holds
/// a hash of itself and of the hash of the one before it, so that an entry that was edited or
/// removed later breaks the chain.
struct Entry {
  std::int64_t id = 0;
  std::string made_at;  ///< UTC by the clock of the server, "2011-06-15 09:30:12.250"
  QString user;
  QString host;
  Kind kind = Kind::kChanged;
  std::string table;  ///< of the record; empty for a work without one, such as an import
  int key = 0;
  ClientId client;          ///< none for records of no client
  std::string year;         ///< "2011-12", or empty
  QString title;            ///< by which people know the record
  std::int64_t undoes = 0;  ///< the entry that this one took back, or 0
  std::string old_rows;     ///< as in NewEntry
  std::string new_rows;
  std::string hash;
};

/// Writes what a transaction did to records as its last act. The row ChangeHead, which it locks
/// until the commit, puts the entries of all programs in one order; two nodes of a cluster that
/// write at once change it both, so that one of them is given up and tries again. Refuses
/// - a user without the right to it,
/// - a change of a record that this program is editing and that another one changed or deleted
///   meanwhile, by itself or as one of many. The refusal shows both versions; the save that
///   follows it is taken.
MaybeRefusal WriteEntry(database::Transaction& transaction);

/// The hash of an entry that follows one of hash `before`.
std::string HashOf(const std::string& before, const Entry& entry);

/// The number of the last change of that record by itself or of all records; 0 when the log has
/// none.
std::int64_t LastChangeOf(database::Connection& connection, std::string_view table, int key);

/// The table that stands for all records, in the entry of a restored backup.
inline constexpr std::string_view kEverything = "*";

/// The number of the last entry: one cheap query, to see whether anything was changed.
std::int64_t LastEntry(database::Connection& connection);

/// Tells what was added to the log since it was asked last, by this program or another. Asking
/// costs one query of one row while nothing was.
class News {
 public:
  explicit News(database::Connection& connection) : connection_(connection) {}

  /// None the first time. The new entries without their rows; none within a transaction. Of very
  /// many the last ones.
  std::vector<Entry> Read();

 private:
  database::Connection& connection_;
  std::optional<std::int64_t> seen_;  ///< none before the first look
};

/// What to read of the log.
struct Filter {
  std::optional<ClientId> client;
  std::string from;  ///< first and last day, "2011-06-15", local time; empty: no bound
  std::string to;
  std::string before;  ///< entries of earlier days, and every entry that is numbered before one
  QString user;        ///< empty: every user
  std::optional<Kind> kind;
  std::int64_t after = 0;  ///< only entries of a higher number
  int newest = 0;          ///< at most so many, the newest first; 0: all, the oldest first
};

/// Calls `visit` with the entries, without their rows unless
/// `with_rows`; the object is the same each time.
void ReadEntries(database::Connection& connection, const Filter& filter, bool with_rows,
                 const std::function<void(const Entry&)>& visit);

/// Everybody who changed something, by name.
QStringList Users(database::Connection& connection);

/// An entry with its rows; nothing when there is none of that number.
std::optional<Entry> LoadEntry(database::Connection& connection, std::int64_t id);

}  // namespace quorvane::changes
