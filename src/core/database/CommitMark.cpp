#include "core/database/CommitMark.h"

#include <QThread>

#include <string>
#include <vector>

namespace quorvane::database {
namespace {

constexpr int kLooks = 6;
constexpr unsigned kFirstWait = 200;  // milliseconds; grows with each look

}  // namespace

void CommitMark::Write(Transaction& transaction) {
  if (!is_kept_) {
    return;
  }
  serial_ = connection_.NextSerial();
  transaction.Execute(
      "Insert Into CommitMark Values(?,?,Utc_Timestamp()) On Duplicate Key Update "
      "Serial=Values(Serial),MadeAt=Values(MadeAt)",
      connection_.Token(), serial_);
}

void CommitMark::InsistOnTransaction(Transaction& transaction) const {
  constexpr int kDeadlock = 1213;
  if (serial_ == 0 || !connection_.IsCluster()) {
    return;
  }
  if (!transaction
           .Open("Select 1 From CommitMark Where Token=? And Serial=?", connection_.Token(),
                 serial_)
           .Next()) {
    throw DatabaseError("40001", kDeadlock, "The cluster gave the transaction up", "");
  }
}

std::optional<bool> CommitMark::WasCommitted() {
  for (int look = 1; serial_ != 0 && look <= kLooks; ++look) {
    try {
      return IsThere();
    } catch (const DatabaseError&) {
      QThread::msleep(kFirstWait * static_cast<unsigned long>(look));
    }
  }
  return std::nullopt;
}

bool CommitMark::IsThere() {
  connection_.Reopen();
  if (connection_.IsCluster()) {
    // Another node answers only when it has what the lost one passed on before it died.
    connection_.Execute("Set Session wsrep_sync_wait=1");
  }
  // The lock waits for the end of the lost transaction where the server has not noticed yet.
  const bool there = connection_
                         .Open(
                             "Select 1 From CommitMark Where Token=? And Serial=? Lock In Share "
                             "Mode",
                             connection_.Token(), serial_)
                         .Next();
  if (connection_.IsCluster()) {
    connection_.Execute("Set Session wsrep_sync_wait=Default");
  }
  return there;
}

CommitMark::Others CommitMark::StateOfOthers(Connection& connection) {
  connection.LookForSharedTables();
  Others others;
  if (!connection.HasSharedTables()) {
    return others;
  }
  others.all = others.records = "-";
  for (const auto& row : connection.Open(
           "Select Left(Token,1)=?,Count(*),Sum(Crc32(Concat(Token,':',Serial))) From CommitMark "
           "Where Token<>? Group By 1 Order By 1",
           kFigures, connection.Token())) {
    const std::string state = row.Text(1).toStdString() + ':' + row.Text(2).toStdString() + ';';
    others.all += state;
    others.records += row.Int(0) == 0 ? state : "";
  }
  return others;
}

void CommitMark::RemoveOld(Connection& connection) {
  std::vector<std::string> old;
  for (const auto& row : connection.Open(
           "Select Token From CommitMark Where MadeAt<Utc_Timestamp()-Interval 30 Day")) {
    old.emplace_back(row.Utf8(0));
  }
  // One by one: a search for all would wait for the row of every transaction under way.
  for (const std::string& token : old) {
    connection.Execute("Delete From CommitMark Where Token=?", token);
  }
}

}  // namespace quorvane::database
