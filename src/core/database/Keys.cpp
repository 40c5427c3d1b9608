#include "core/database/Keys.h"

#include <fmt/format.h>

#include <algorithm>

namespace quorvane::database {

int NextKey(Transaction& transaction, std::string_view table, std::string_view column) {
  // Writers queue at a row that stays where it is. If they met at the largest one only, each would
  // hold the place after it, where the other is about to insert: a deadlock every time.
  transaction.Open(fmt::format("Select {} From {} Limit 1 For Update", column, table));
  Recordset rows =
      transaction.Open(fmt::format("Select Max({}) From {} For Update", column, table));
  return rows.Next() ? rows.Int(std::size_t{0}) + 1 : 1;
}

int NextSharedKey(Transaction& transaction, std::initializer_list<std::string_view> tables) {
  int next = 1;
  for (const std::string_view table : tables) {
    next = std::max(next, NextKey(transaction, table));
  }
  return next;
}

}  // namespace quorvane::database
