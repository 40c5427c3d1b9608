#include "core/database/Turns.h"

#include <QElapsedTimer>
#include <QThread>

namespace quorvane::database {
namespace {

constexpr int kLongestWait = 60000;  // milliseconds; as long as a reservation holds
constexpr int kLookAgainAfter = 50;  // milliseconds

}  // namespace

Turns::Turns(Connection& connection) : connection_(connection) {}

Turns::~Turns() {
  if (!reserved_) {
    return;
  }
  try {
    connection_.Execute("Update Writers Set Holder='' Where Id=1 And Holder=?",
                        connection_.Token());
  } catch (const DatabaseError&) {
    // It ends by itself within a minute.
  }
}

void Turns::Await(Turn turn) {
  connection_.LookForSharedTables();
  if (!connection_.HasSharedTables() || !connection_.IsCluster()) {
    return;
  }
  QElapsedTimer waited;
  waited.start();
  const auto may_go = [&] { return turn == Turn::kAlone ? Reserve() : !IsReservedByAnother(); };
  while (!may_go() && waited.elapsed() < kLongestWait) {
    QThread::msleep(kLookAgainAfter);
  }
}

bool Turns::IsReservedByAnother() {
  return connection_
      .Open(
          "Select 1 From Writers Where Id=1 And Holder<>'' And Holder<>? And "
          "HeldUntil>Utc_Timestamp()",
          connection_.Token())
      .Next();
}

bool Turns::Reserve() {
  try {
    const std::int64_t changed = connection_.Execute(
        "Update Writers Set Holder=?,HeldUntil=Utc_Timestamp()+Interval 60 Second,Turn=Turn+1 "
        "Where Id=1 And (Holder In('',?) Or HeldUntil<=Utc_Timestamp())",
        connection_.Token(), connection_.Token());
    reserved_ = reserved_ || changed > 0;
    return changed > 0;
  } catch (const DatabaseError& error) {
    if (!error.IsTransient()) {
      throw;
    }
    return false;
  }
}

void Turns::Take(Transaction& transaction, Turn turn) {
  if (!connection_.HasSharedTables()) {
    return;
  }
  if (connection_.IsCluster()) {
    transaction.Execute("Update Writers Set Turn=Turn+1 Where Id=1");
  } else if (turn == Turn::kAlone) {
    transaction.Open("Select Turn From Writers Where Id=1 For Update");
  } else {
    transaction.Open("Select Turn From Writers Where Id=1 Lock In Share Mode");
  }
}

}  // namespace quorvane::database
