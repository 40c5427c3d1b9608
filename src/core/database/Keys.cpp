#include "core/database/Keys.h"

#include "core/database/SchemaTables.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <stdexcept>

namespace quorvane::database {

namespace {

constexpr std::string_view kLots = "Stock";
constexpr std::string_view kScratchLots = "Stock_Temp";

std::string LargestIn(std::string_view table, std::string_view column) {
  return fmt::format("Coalesce((Select Max({}) From {}),0)", column, table);
}

/// The largest key that anything in the database has or names.
std::int64_t LargestEverywhere(Connection& connection, std::string_view table) {
  std::string sql = "Select Greatest(0," + LargestIn(table, "Id");
  if (table == kLots) {
    sql += "," + LargestIn(kScratchLots, "Id");
  }
  for (const KeyReference& reference : KeyReferences()) {
    if (reference.names == table) {
      sql += "," + LargestIn(reference.table, reference.column);
    }
  }
  auto rows = connection.Open(sql + ")");
  return rows.Next() ? rows.Int64(0) : 0;
}

void MakeCounter(Connection& connection, std::string_view table) {
  // Another program may make it at the same time, from the same rows.
  connection.Execute("Insert Ignore Into RecordKey Values(?,?)", table,
                     LargestEverywhere(connection, table));
}

std::optional<std::int64_t> LockCounter(Transaction& transaction, std::string_view table) {
  auto rows = transaction.Open("Select LastKey From RecordKey Where TableName=? For Update", table);
  return rows.Next() ? std::optional(rows.Int64(0)) : std::nullopt;
}

/// As it is at this moment, not as the transaction's first read saw it.
std::int64_t LargestNow(Transaction& transaction, std::string_view table) {
  auto rows = transaction.Open(fmt::format("Select Max(Id) From {} Lock In Share Mode", table));
  return rows.Next() ? rows.Int64(0) : 0;
}

/// Locks the table's counter and returns the last key given.
std::int64_t LastKey(Transaction& transaction, std::string_view table) {
  std::optional<std::int64_t> counted = LockCounter(transaction, table);
  if (!counted) {
    MakeCounter(transaction.GetConnection(), table);
    counted = LockCounter(transaction, table);
  }
  std::int64_t last = std::max(counted.value_or(0), LargestNow(transaction, table));
  if (table == kLots) {
    last = std::max(last, LargestNow(transaction, kScratchLots));
  }
  return last;
}

void SetCounter(Transaction& transaction, std::string_view table, std::int64_t last) {
  transaction.Execute("Update RecordKey Set LastKey=? Where TableName=?", last, table);
}

int KeyAfter(std::string_view table, std::int64_t last, int count) {
  if (last > std::numeric_limits<int>::max() - std::max(count, 1)) {
    throw std::runtime_error(fmt::format("the keys of the table {} are used up", table));
  }
  return static_cast<int>(last) + 1;
}

}  // namespace

int NextKey(Transaction& transaction, std::string_view table) {
  return NextKeys(transaction, table, 1);
}

int NextKeys(Transaction& transaction, std::string_view table, int count) {
  const std::int64_t last = LastKey(transaction, table);
  const int first = KeyAfter(table, last, count);
  SetCounter(transaction, table, last + count);
  return first;
}

int FirstFreeKey(Transaction& transaction, std::string_view table) {
  return KeyAfter(table, LastKey(transaction, table), 1);
}

void KeepKeys(Transaction& transaction, std::string_view table, int next) {
  SetCounter(transaction, table, std::int64_t{next} - 1);
}

KeyCounters ReadCounters(Connection& connection) {
  KeyCounters counters;
  for (const auto& row : connection.Open("Select TableName,LastKey From RecordKey")) {
    counters.emplace(row.Utf8(0), row.Int64(1));
  }
  return counters;
}

void RaiseCounters(Transaction& transaction, const KeyCounters& counters) {
  for (const auto& [table, last] : counters) {
    transaction.Execute(
        "Insert Into RecordKey Values(?,?) On Duplicate Key Update "
        "LastKey=Greatest(LastKey,Values(LastKey))",
        table, last);
  }
}

void MakeCounters(Connection& connection) {
  const KeyCounters made = ReadCounters(connection);
  for (const std::string_view table : KeyedTables()) {
    if (!made.contains(std::string(table))) {
      MakeCounter(connection, table);
    }
  }
}

}  // namespace quorvane::database
