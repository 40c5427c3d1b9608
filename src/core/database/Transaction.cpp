#include "core/database/Transaction.h"

#include <QRandomGenerator>
#include <QThread>

#include <stdexcept>

namespace quorvane::database {

Transaction::Transaction(Connection& connection) : connection_(connection) {
  if (connection_.in_transaction_) {
    throw std::logic_error("a transaction is open already");
  }
  connection_.Reopen();
  connection_.SetAutocommit(false);
  connection_.in_transaction_ = true;
}

Transaction::~Transaction() {
  connection_.in_transaction_ = false;
  if (!open_ || !connection_.IsAlive()) {
    return;
  }
  try {
    connection_.EndTransaction(false);
    connection_.SetAutocommit(true);
  } catch (const DatabaseError&) {
    // A connection that cannot even roll back is of no more use: the server rolls back when it
    // ends, and the next transaction opens a new one.
    connection_.alive_ = false;
  }
}

void Transaction::Commit() {
  connection_.EndTransaction(true);
  open_ = false;
  connection_.in_transaction_ = false;
  try {
    connection_.SetAutocommit(true);
  } catch (const DatabaseError&) {
    // The work is saved, so this is no failure of it; the next transaction connects anew.
    connection_.alive_ = false;
  }
}

namespace {

enum class Phase { kWork, kCommit };

bool MayTryAgain(const DatabaseError& error, Phase phase, int attempt) {
  if (attempt >= kAttempts) {
    return false;
  }
  // After a commit whose answer was lost nobody knows whether it happened; doing the work again
  // could record a bill twice.
  return error.IsTransient() || (error.IsConnectionLost() && phase == Phase::kWork);
}

/// Programs that stood in each other's way must not meet again at once.
void WaitABit(int attempt) {
  const int most = 20 << attempt;
  QThread::msleep(QRandomGenerator::global()->bounded(1U, static_cast<unsigned>(most)));
}

}  // namespace

MaybeRefusal InTransaction(Connection& connection,
                           const std::function<MaybeRefusal(Transaction&)>& work) {
  for (int attempt = 1;; ++attempt) {
    Phase phase = Phase::kWork;
    try {
      Transaction transaction(connection);
      if (MaybeRefusal refusal = work(transaction)) {
        return refusal;
      }
      phase = Phase::kCommit;
      transaction.Commit();
      break;
    } catch (const DatabaseError& error) {
      if (!MayTryAgain(error, phase, attempt)) {
        throw;
      }
    }
    WaitABit(attempt);
  }
  try {
    connection.FlushTables();
  } catch (const DatabaseError&) {
    // The work is saved: a flush that failed must not look like a save that failed.
  }
  return std::nullopt;
}

}  // namespace quorvane::database
