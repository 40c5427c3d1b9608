#pragma once

#include "core/database/Transaction.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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

  /// From now on the connection writes no records, only figures that are computed from them. To be
  /// called before its first transaction.
  static void WritesFiguresOnly(Connection& connection) { connection.token_.insert(0, kFigures); }

  /// Texts that are other ones after any other connection, of any program, has committed a
  /// transaction. Empty where the database keeps no marks.
  struct Others {
    std::string all;
    std::string records;  ///< without those that write figures only
  };
  static Others StateOfOthers(Connection& connection);

  /// Deletes the rows of programs of long ago.
  static void RemoveOld(Connection& connection);

 private:
  bool IsThere();

  static constexpr std::string_view kFigures = "~";  ///< begins the token of such a connection

  Connection& connection_;
  bool is_kept_ = false;
  std::int64_t serial_ = 0;  ///< of this mark; 0 before it was written
};

}  // namespace quorvane::database
