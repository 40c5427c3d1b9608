#pragma once

#include "core/Result.h"
#include "core/changes/Changes.h"
#include "core/database/Connection.h"

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string_view>
#include <type_traits>

namespace quorvane::database {

/// A unit of work that happens wholly or not at all: what is not committed is rolled back when the
/// object is destroyed. Everything that writes records takes a Transaction&, so that it cannot be
/// called outside one. There is at most one at a time a connection.
class Transaction {
 public:
  /// Opens a lost connection again first; throws DatabaseError.
  explicit Transaction(Connection& connection);
  ~Transaction();
  Transaction(const Transaction&) = delete;

  template <class... Values>
  std::int64_t Execute(std::string_view sql, const Values&... values) {
    return connection_.Execute(sql, values...);
  }
  template <class... Values>
  Recordset Open(std::string_view sql, const Values&... values) {
    return connection_.Open(sql, values...);
  }

  void Commit();
  Connection& GetConnection() { return connection_; }

  /// What it did to records so far.
  changes::Changes& Changes() { return changes_; }

 private:
  Connection& connection_;
  changes::Changes changes_;
  bool open_ = true;
};

/// What may run beside a transaction: with kShared all that are shared, with kAlone none.
enum class Turn { kShared, kAlone };

/// The log of changes refused work that itself refuses nothing; what() is the text to show.
class NotAllowed : public std::runtime_error {
 public:
  explicit NotAllowed(const Refusal& refusal) : std::runtime_error(refusal.text.toStdString()) {}
};

/// Runs `work` in a transaction, commits when it returns without a refusal and then sends "Flush
/// Tables" once; a refusal or an exception rolls back. Work that the server gave up because of
/// another transaction, or whose connection was lost, is done again, at most kAttempts times in
/// all; so `work` changes nothing but the database, and sets what its caller reads afresh each
/// time. The later tries are made alone, so that no other one stops them. A commit whose answer was
/// lost is looked up: it is done, or the work is done again.
///
/// What the work did to records is written to the log of changes in the same transaction. That may
/// refuse: a user who has no right to it, and a record that another program changed since it was
/// opened for editing (changes::EditedRecord).
///
/// A Turn::kAlone waits for all others and keeps them waiting: what it reads stays as it is until
/// it ends.
MaybeRefusal InTransaction(Connection& connection,
                           const std::function<MaybeRefusal(Transaction&)>& work,
                           Turn turn = Turn::kShared);

/// The same for work that refuses nothing itself. Throws NotAllowed when the log refuses it.
template <class Work>
requires std::is_void_v<std::invoke_result_t<Work&, Transaction&>>
void InTransaction(Connection& connection, Work work, Turn turn = Turn::kShared) {
  if (const MaybeRefusal refusal = InTransaction(
          connection,
          [&](Transaction& transaction) -> MaybeRefusal {
            work(transaction);
            return std::nullopt;
          },
          turn)) {
    throw NotAllowed(*refusal);
  }
}

/// The same for work that returns a value: that of the try that was committed.
template <class Work>
requires kIsResult<std::invoke_result_t<Work&, Transaction&>>
auto InTransaction(Connection& connection, Work work, Turn turn = Turn::kShared) {
  std::optional<std::invoke_result_t<Work&, Transaction&>> outcome;
  const MaybeRefusal refusal = InTransaction(
      connection,
      [&](Transaction& transaction) -> MaybeRefusal {
        outcome.emplace(work(transaction));
        return outcome->Refused();
      },
      turn);
  if (refusal && *outcome) {
    return std::invoke_result_t<Work&, Transaction&>(*refusal);
  }
  return *std::move(outcome);
}

inline constexpr int kAttempts = 8;

}  // namespace quorvane::database
