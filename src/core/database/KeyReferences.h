#pragma once

#include <span>
#include <string_view>

namespace quorvane::database {

/// A column that holds keys of a table's records: "SPTrans.SID names a SPMaster". The column of the
/// keys themselves is called Id in every table.
struct KeyReference {
  std::string_view table;
  std::string_view column;
  std::string_view names;
};

/// Every reference between the tables, in the order of the tables.
std::span<const KeyReference> KeyReferences();

/// The tables whose records have a key.
std::span<const std::string_view> KeyedTables();

}  // namespace quorvane::database
