#pragma once

#include "core/database/Transaction.h"

namespace quorvane::database {

/// The turns of one unit of work: which transactions may run beside each other, agreed on by the
/// one row of the table Writers. A database without the table has no turns.
///
/// On one server a shared turn is a shared lock of the row and a turn alone an exclusive one, taken
/// before anything else: a transaction that runs alone meets no lock of another. The nodes of a
/// cluster do not see each other's locks, only each other's changes; there every transaction
/// changes the row first, so that of two at once the later one is given up by the cluster and done
/// again. A transaction that is to run alone there reserves the row for a while first, and the
/// others wait before they begin.
class Turns {
 public:
  explicit Turns(Connection& connection);

  /// Ends a reservation.
  ~Turns();
  Turns(const Turns&) = delete;

  /// Before the transaction: waits for another program's reservation to end, and makes one for
  /// Turn::kAlone. On one server there is nothing to wait for here.
  void Await(Turn turn);

  /// The first statement of the transaction.
  void Take(Transaction& transaction, Turn turn);

 private:
  bool IsReservedByAnother();
  bool Reserve();

  Connection& connection_;
  bool reserved_ = false;
};

}  // namespace quorvane::database
