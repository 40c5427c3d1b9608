#include "core/changes/EditedRecord.h"

#include "core/changes/Log.h"
#include "core/text/Tr.h"

#include <QStringList>
#include <QTimeZone>

namespace quorvane::changes {

using database::DatabaseError;

EditedRecord::EditedRecord(database::Connection& connection, std::string_view table, int key)
    : connection_(connection), table_(table), key_(key) {
  connection_.Edits().Begin(table, key, LastEntry(connection));
  Beat();
}

EditedRecord::~EditedRecord() {
  connection_.Edits().End(table_, key_);
  if (connection_.InTransaction()) {
    return;
  }
  try {
    connection_.Execute("Delete From OpenRecord Where Token=? And TableName=? And RecordId=?",
                        connection_.Token(), table_, key_);
  } catch (const DatabaseError&) {
    // It is forgotten by itself.
  }
}

// Whether others see it is no reason to stop the work with it.
void EditedRecord::Beat() {
  if (connection_.InTransaction()) {
    return;
  }
  try {
    connection_.Execute(
        "Insert Into OpenRecord(Token,TableName,RecordId,UserName,Host,OpenedAt,SeenAt) "
        "Values(?,?,?,?,?,Utc_Timestamp(),Utc_Timestamp()) On Duplicate Key Update "
        "SeenAt=Values(SeenAt)",
        connection_.Token(), table_, key_, connection_.Author().user, connection_.Author().host);
    connection_.Execute(
        "Delete From OpenRecord Where TableName=? And RecordId=? And "
        "SeenAt<Utc_Timestamp()-Interval 1 Day",
        table_, key_);
  } catch (const DatabaseError&) {
    return;
  }
}

std::vector<OpenElsewhere> EditedRecord::Others() const {
  std::vector<OpenElsewhere> others;
  for (const auto& row : connection_.Open(
           "Select UserName,Host,Date_Format(OpenedAt,'%Y-%m-%dT%H:%i:%s') From OpenRecord Where "
           "TableName=? And RecordId=? And Token<>? And SeenAt>=Utc_Timestamp()-Interval ? Second "
           "Order By OpenedAt",
           table_, key_, connection_.Token(), kForgottenAfter)) {
    QDateTime since = QDateTime::fromString(row.Text(2), Qt::ISODate);
    since.setTimeZone(QTimeZone::utc());
    others.push_back({row.Text(0), row.Text(1), since.toLocalTime()});
  }
  return others;
}

QString TextOf(const std::vector<OpenElsewhere>& others) {
  QStringList texts;
  for (const OpenElsewhere& one : others) {
    texts << Tr("Changes", "Open at %1 on %2 since %3")
                 .arg(one.user, one.host, one.since.toString(QStringLiteral("hh:mm")));
  }
  return texts.join(QStringLiteral("; "));
}

}  // namespace quorvane::changes
