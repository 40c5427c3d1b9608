#pragma once

#include "core/database/Transaction.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quorvane::database {

/// A row that a transaction writes in addition. It shows whether the transaction is still under
/// way, and whether it was committed when the answer to the commit was lost. A connection has one
/// row, which each of its transactions changes.
class CommitMark {
 public:
  explicit CommitMark(Connection& connection) : connection_(connection) {}

  /// Before the transaction: looks whether the database keeps marks.
  void Prepare() { is_kept_ = connection_.HasSharedTables(); }

  /// Before anything else that the transaction writes.
  void Write(Transaction& transaction);

  /// Throws a transient DatabaseError when the transaction that wrote the mark is not the one that
  /// is under way: a cluster gives up a transaction that waits for its program, and the driver may
  /// not report it. What was read since is then not of one transaction.
  void InsistOnTransaction(Transaction& transaction) const;

  /// After the connection was lost at the commit: opens it again and looks. Nothing when it cannot
  /// be told. Waits some seconds for a server that comes back.
  std::optional<bool> WasCommitted();

  /// A text that is another one after any other connection, of any program, has committed a
  /// transaction. Empty where the database keeps no marks.
  static std::string StateOfOthers(Connection& connection);

  /// Deletes the rows of programs of long ago.
  static void RemoveOld(Connection& connection);

 private:
  bool IsThere();

  Connection& connection_;
  bool is_kept_ = false;
  std::int64_t serial_ = 0;  ///< of this mark; 0 before it was written
};

}  // namespace quorvane::database
