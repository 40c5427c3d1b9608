#pragma once

#include <bitset>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace quorvane::records {

/// A column of a table and the member of the record that keeps it.
template <class Record, class Field>
struct Column {
  std::string_view name;
  Field Record::*member;
};
template <class Record, class Field>
Column(const char*, Field Record::*) -> Column<Record, Field>;

/// The table of a kind of record. Each record's header specialises it with
///
///     static constexpr std::string_view kName = "StkOpBal";
///     static constexpr auto kColumns = std::tuple(Column{"CId", &Opening::client}, ...);
///
/// This is the one list of the columns: everything that reads or writes the table uses it. A table
/// that is computed from others has `static constexpr bool kIsDerived = true;` as well: its rows
/// are not in the log of changes.
template <class Record>
struct Table;

/// Which columns of a stored row are NULL, by their places in the list. A record reads them as 0 or
/// as an empty text.
using Nulls = std::bitset<64>;

/// Calls `visit` for each column in the order of the list.
template <class Record, class Visit>
constexpr void ForEachColumn(const Visit& visit) {
  std::apply([&](const auto&... column) { (visit(column), ...); }, Table<Record>::kColumns);
}

/// The name of a member's column; empty when the member has none.
template <class Record, class Field>
constexpr std::string_view ColumnOf(Field Record::*member) {
  std::string_view name;
  ForEachColumn<Record>([&](const auto& column) {
    if constexpr (std::is_same_v<decltype(column.member), Field Record::*>) {
      if (column.member == member) {
        name = column.name;
      }
    }
  });
  return name;
}

}  // namespace quorvane::records
