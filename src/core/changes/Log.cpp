#include "core/changes/Log.h"

#include "core/changes/Touched.h"
#include "core/changes/Words.h"
#include "core/database/Transaction.h"

#include <QCryptographicHash>
#include <QDateTime>

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

namespace quorvane::changes {
namespace {

using database::Connection;
using database::Transaction;
using database::Value;

constexpr qsizetype kLongestName = 255;
constexpr std::string_view kWithoutRows =
    "Id,MadeAt,UserName,Host,Kind,TableName,RecordId,ClientId,FYear,Title,Undoes,Hash";

/// The end of the chain; locked until the transaction ends.
struct Head {
  std::int64_t last = 0;
  std::string hash;
  std::string now;
};

Head LockHead(Transaction& transaction) {
  auto rows = transaction.Open(
      "Select LastId,LastHash,Date_Format(Utc_Timestamp(3),'%Y-%m-%d %H:%i:%s.%f') From ChangeHead "
      "Where Id=1 For Update");
  if (!rows.Next()) {
    throw std::runtime_error("the row of the table ChangeHead is missing; start the program again");
  }
  constexpr std::size_t kToMilliseconds = 23;
  return {rows.Int64(0), std::string(rows.Utf8(1)),
          std::string(rows.Utf8(2).substr(0, kToMilliseconds))};
}

/// The right that a change needs; nothing for what only recomputes.
std::optional<Right> RightFor(const NewEntry& entry) {
  switch (entry.kind) {
    case Kind::kRebuilt:
      return std::nullopt;
    case Kind::kPassword: {
      const bool is_all = entry.old_rows.empty() && entry.new_rows.empty();
      return is_all ? std::nullopt : std::optional(kAdminister);
    }
    case Kind::kRestored:
    case Kind::kRepaired:
    case Kind::kCleared:
    case Kind::kRights:
      return kAdminister;
    case Kind::kDeleted:
      return entry.owner.table == "LoginId" ? kAdminister : entry.undoes != 0 ? kEnter : kDelete;
    default:
      return entry.owner.table == "LoginId" ? kAdminister : kEnter;
  }
}

MaybeRefusal CheckRight(const Author& author, const NewEntry& entry) {
  const std::optional<Right> right = RightFor(entry);
  return right && !author.May(*right) ? MaybeRefusal(NoRight(*right)) : std::nullopt;
}

Entry EntryOf(const database::Recordset& row, bool with_rows) {
  Entry entry;
  std::size_t at = 0;
  entry.id = row.Int64(at++);
  entry.made_at = row.Utf8(at++);
  entry.user = row.Text(at++);
  entry.host = row.Text(at++);
  entry.kind = static_cast<Kind>(row.Int(at++));
  entry.table = row.Utf8(at++);
  entry.key = row.Int(at++);
  entry.client = ClientId{row.Int(at++)};
  entry.year = row.Utf8(at++);
  entry.title = row.Text(at++);
  entry.undoes = row.Int64(at++);
  entry.hash = row.Utf8(at++);
  if (with_rows) {
    entry.old_rows = row.Utf8(at++);
    entry.new_rows = row.Utf8(at++);
  }
  return entry;
}

/// What others did to a record since it was read.
struct Since {
  std::int64_t last = 0;       ///< the last entry that may have changed it; 0: none
  std::optional<Entry> entry;  ///< the one to tell of
  bool names_it = false;       ///< surely changed it
};

/// The entries after one number that may have changed the record; of them the last one that names
/// it is told, and one that only counts its rows when none does. Single records are found in the
/// rows of entries of many, too. The lock shows what was committed since the transaction's first
/// read.
Since ChangesAfter(Connection& connection, std::int64_t seen, const Owner& record) {
  Since since;
  auto rows = connection.Open(
      fmt::format("Select {},OldRows,NewRows From ChangeLog Where Id>? Order By Id Desc Lock In "
                  "Share Mode",
                  kWithoutRows),
      seen);
  while (!since.names_it && rows.Next()) {
    Entry entry = EntryOf(rows, true);
    const Touched touched = TouchedBy(entry, record.table);
    since.names_it = touched.Names(record.key);
    const bool may_be = touched.MayHaveChanged(record.key) && IsOf(entry, ClientId{record.client});
    if (since.names_it || (may_be && !since.entry)) {
      since.last = std::max(since.last, entry.id);
      since.entry = std::move(entry);
    }
  }
  return since;
}

/// A record under edit that others changed or deleted since. What the user has been shown now
/// counts as seen.
MaybeRefusal CheckIsCurrent(Transaction& transaction, const NewEntry& entry) {
  Connection& connection = transaction.GetConnection();
  Owner record = entry.owner;
  const std::optional<Owner>& missed = transaction.Changes().MissedRecord();
  if (missed) {
    record.table = missed->table;
    record.key = missed->key;
  }
  const auto seen = connection.Edits().Seen(record.table, record.key);
  const Since since = seen ? ChangesAfter(connection, *seen, record) : Since();
  if (!since.entry) {
    return std::nullopt;
  }
  connection.Edits().Begin(record.table, record.key, since.last);
  return missed ? DeletedMeanwhile(*since.entry, since.names_it)
                : ChangedMeanwhile(*since.entry, since.names_it, entry);
}

Entry EntryOf(const Author& author, NewEntry&& made, const Head& head) {
  Entry entry;
  entry.id = head.last + 1;
  entry.made_at = head.now;
  entry.user = author.user.left(kLongestName);
  entry.host = author.host.left(kLongestName);
  entry.kind = made.kind;
  entry.table = made.owner.table;
  entry.key = made.owner.key;
  entry.client = ClientId{made.owner.client};
  entry.year = std::move(made.owner.year);
  entry.title = made.owner.title.left(kLongestName);
  entry.undoes = made.undoes;
  entry.old_rows = std::move(made.old_rows);
  entry.new_rows = std::move(made.new_rows);
  return entry;
}

void Insert(Transaction& transaction, const Entry& entry) {
  transaction.Execute(
      "Insert Into ChangeLog(Id,MadeAt,UserName,Host,Kind,TableName,RecordId,ClientId,FYear,Title,"
      "Undoes,OldRows,NewRows,Hash) Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
      entry.id, entry.made_at, entry.user, entry.host, static_cast<int>(entry.kind), entry.table,
      entry.key, entry.client, entry.year, entry.title, entry.undoes, entry.old_rows,
      entry.new_rows, entry.hash);
  transaction.Execute("Update ChangeHead Set LastId=?,LastHash=? Where Id=1", entry.id, entry.hash);
}

/// The first instant of a local day in UTC, as it is stored.
std::string StartOf(const std::string& day, int days_later) {
  const QDate date = QDate::fromString(QString::fromStdString(day), Qt::ISODate);
  return date.addDays(days_later)
      .startOfDay()
      .toUTC()
      .toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"))
      .toStdString();
}

struct Condition {
  std::string text = " Where Id>?";
  std::vector<Value> values;

  explicit Condition(const Filter& filter) : values{filter.after} {
    if (filter.client) {
      Add(" And ClientId=?", *filter.client);
    }
    if (!filter.from.empty()) {
      Add(" And MadeAt>=?", StartOf(filter.from, 0));
    }
    if (!filter.to.empty()) {
      Add(" And MadeAt<?", StartOf(filter.to, 1));
    }
    if (!filter.before.empty()) {
      Add(" And Id<=(Select Max(Id) From ChangeLog Where MadeAt<?)", StartOf(filter.before, 0));
    }
    if (!filter.user.isEmpty()) {
      Add(" And UserName=?", filter.user);
    }
    if (filter.kind) {
      Add(" And Kind=?", static_cast<int>(*filter.kind));
    }
  }

  void Add(std::string_view more, Value value) {
    text += more;
    values.push_back(std::move(value));
  }
};

}  // namespace

MaybeRefusal WriteEntry(Transaction& transaction) {
  std::optional<NewEntry> made = transaction.Changes().Entry();
  Connection& connection = transaction.GetConnection();
  if (!made || !connection.HasSharedTables()) {
    return std::nullopt;
  }
  if (MaybeRefusal refusal = CheckRight(connection.Author(), *made)) {
    return refusal;
  }
  const Head head = LockHead(transaction);
  if (MaybeRefusal refusal = CheckIsCurrent(transaction, *made)) {
    return refusal;
  }
  Entry entry = EntryOf(connection.Author(), *std::move(made), head);
  entry.hash = HashOf(head.hash, entry);
  Insert(transaction, entry);
  return std::nullopt;
}

std::string HashOf(const std::string& before, const Entry& entry) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  const auto add = [&](std::string_view text) {
    const std::string length = fmt::format("{}:", text.size());
    hash.addData(QByteArrayView(length.data(), std::ssize(length)));
    hash.addData(QByteArrayView(text.data(), std::ssize(text)));
  };
  add(before);
  for (const std::int64_t number :
       {entry.id, std::int64_t{static_cast<int>(entry.kind)}, std::int64_t{entry.key},
        std::int64_t{entry.client.value}, entry.undoes}) {
    add(std::to_string(number));
  }
  for (const std::string& text : {entry.made_at, entry.user.toStdString(), entry.host.toStdString(),
                                  entry.table, entry.year, entry.title.toStdString()}) {
    add(text);
  }
  add(entry.old_rows);
  add(entry.new_rows);
  return hash.result().toHex().toStdString();
}

std::int64_t LastChangeOf(Connection& connection, std::string_view table, int key) {
  auto rows = connection.Open(
      "Select Max(Id) From ChangeLog Where (TableName=? And RecordId=?) Or (TableName=? And "
      "RecordId=0)",
      table, key, kEverything);
  return rows.Next() ? rows.Int64(0) : 0;
}

std::int64_t LastEntry(Connection& connection) {
  auto rows = connection.Open("Select LastId From ChangeHead Where Id=1");
  return rows.Next() ? rows.Int64(0) : 0;
}

std::vector<Entry> News::Read() {
  constexpr std::int64_t kMost = 1000;
  std::vector<Entry> entries;
  if (connection_.InTransaction()) {
    return entries;
  }
  const std::int64_t last = LastEntry(connection_);
  if (last > seen_.value_or(last)) {
    Filter filter;
    filter.after = std::max(*seen_, last - kMost);
    ReadEntries(connection_, filter, false, [&](const Entry& entry) { entries.push_back(entry); });
  }
  seen_ = last;
  return entries;
}

void ReadEntries(Connection& connection, const Filter& filter, bool with_rows,
                 const std::function<void(const Entry&)>& visit) {
  const Condition condition(filter);
  auto rows = connection.OpenValues(
      fmt::format("Select {}{} From ChangeLog{} Order By Id{}", kWithoutRows,
                  with_rows ? ",OldRows,NewRows" : "", condition.text,
                  filter.newest > 0 ? fmt::format(" Desc Limit {}", filter.newest) : ""),
      condition.values);
  while (rows.Next()) {
    visit(EntryOf(rows, with_rows));
  }
}

QStringList Users(Connection& connection) {
  QStringList users;
  for (const auto& row :
       connection.Open("Select Distinct UserName From ChangeLog Order By UserName")) {
    users << row.Text(0);
  }
  return users;
}

std::optional<Entry> LoadEntry(Connection& connection, std::int64_t id) {
  auto rows = connection.Open(
      fmt::format("Select {},OldRows,NewRows From ChangeLog Where Id=?", kWithoutRows), id);
  return rows.Next() ? std::optional(EntryOf(rows, true)) : std::nullopt;
}

}  // namespace quorvane::changes
