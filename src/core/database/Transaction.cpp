#include "core/database/Transaction.h"

#include "core/changes/Log.h"
#include "core/database/CommitMark.h"
#include "core/database/Turns.h"

#include <QRandomGenerator>
#include <QThread>

#include <algorithm>
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

constexpr int kAttemptsBesideOthers = 3;

/// Programs that stood in each other's way must not meet again at once.
void WaitABit(int attempt) {
  const int most = std::min(20 << attempt, 1000);
  QThread::msleep(QRandomGenerator::global()->bounded(1U, static_cast<unsigned>(most)));
}

/// One unit of work with its tries.
class Tries {
 public:
  using Work = std::function<MaybeRefusal(Transaction&)>;

  Tries(Connection& connection, const Work& work, Turn turn)
      : connection_(connection), work_(work), turn_(turn), turns_(connection) {}

  MaybeRefusal Run() {
    for (int attempt = 1;; ++attempt) {
      CommitMark mark(connection_);
      committing_ = false;
      try {
        return RunOnce(attempt > kAttemptsBesideOthers ? Turn::kAlone : turn_, mark);
      } catch (const DatabaseError& error) {
        const Fate fate = FateAfter(error, mark);
        if (fate == Fate::kDone) {
          return std::nullopt;
        }
        if (fate == Fate::kUnknown || attempt >= kAttempts) {
          throw;
        }
      }
      WaitABit(attempt);
    }
  }

 private:
  enum class Fate { kDone, kUndone, kUnknown };

  MaybeRefusal RunOnce(Turn turn, CommitMark& mark) {
    turns_.Await(turn);
    mark.Prepare();
    Transaction transaction(connection_);
    turns_.Take(transaction, turn);
    mark.Write(transaction);
    MaybeRefusal refusal = work_(transaction);
    if (!refusal) {
      refusal = changes::WriteEntry(transaction);
    }
    mark.InsistOnTransaction(transaction);
    if (refusal) {
      return refusal;
    }
    committing_ = true;
    transaction.Commit();
    return std::nullopt;
  }

  /// What became of a try that failed; kUndone may be tried again, kUnknown may not: doing the work
  /// again could record a bill twice.
  Fate FateAfter(const DatabaseError& error, CommitMark& mark) {
    if (error.IsConnectionLost() && committing_) {
      const std::optional<bool> committed = mark.WasCommitted();
      return !committed ? Fate::kUnknown : *committed ? Fate::kDone : Fate::kUndone;
    }
    return error.IsTransient() || error.IsConnectionLost() ? Fate::kUndone : Fate::kUnknown;
  }

  Connection& connection_;
  const Work& work_;
  Turn turn_;
  Turns turns_;
  bool committing_ = false;
};

}  // namespace

MaybeRefusal InTransaction(Connection& connection,
                           const std::function<MaybeRefusal(Transaction&)>& work, Turn turn) {
  if (MaybeRefusal refusal = Tries(connection, work, turn).Run()) {
    return refusal;
  }
  try {
    connection.FlushTables();
  } catch (const DatabaseError&) {
    // The work is saved: a flush that failed must not look like a save that failed.
  }
  return std::nullopt;
}

}  // namespace quorvane::database
