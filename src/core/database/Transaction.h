#pragma once

#include "core/Result.h"
#include "core/database/Connection.h"

#include <cstdint>
#include <functional>
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

 private:
  Connection& connection_;
  bool open_ = true;
};

/// What may run beside a transaction: with kShared all that are shared, with kAlone none.
enum class Turn { kShared, kAlone };

/// Runs `work` in a transaction, commits when it returns without a refusal and then sends "Flush
/// Tables" once; a refusal or an exception rolls back. Work that the server gave up because of
/// another transaction, or whose connection was lost, is done again, at most kAttempts times in
/// all; so `work` changes nothing but the database, and sets what its caller reads afresh each
/// time. The later tries are made alone, so that no other one stops them. A commit whose answer was
/// lost is looked up: it is done, or the work is done again.
///
/// A Turn::kAlone waits for all others and keeps them waiting: what it reads stays as it is until
/// it ends.
MaybeRefusal InTransaction(Connection& connection,
                           const std::function<MaybeRefusal(Transaction&)>& work,
                           Turn turn = Turn::kShared);

/// The same for work that is never refused.
template <class Work>
requires std::is_void_v<std::invoke_result_t<Work&, Transaction&>>
void InTransaction(Connection& connection, Work work, Turn turn = Turn::kShared) {
  static_cast<void>(InTransaction(
      connection,
      [&](Transaction& transaction) -> MaybeRefusal {
        work(transaction);
        return std::nullopt;
      },
      turn));
}

/// The same for work that returns a value: that of the try that was committed.
template <class Work>
requires kIsResult<std::invoke_result_t<Work&, Transaction&>>
auto InTransaction(Connection& connection, Work work, Turn turn = Turn::kShared) {
  std::optional<std::invoke_result_t<Work&, Transaction&>> outcome;
  static_cast<void>(InTransaction(
      connection,
      [&](Transaction& transaction) -> MaybeRefusal {
        outcome.emplace(work(transaction));
        return outcome->Refused();
      },
      turn));
  return *std::move(outcome);
}

inline constexpr int kAttempts = 8;

}  // namespace quorvane::database
