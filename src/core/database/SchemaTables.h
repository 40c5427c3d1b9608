#pragma once

#include <span>
#include <string_view>

namespace quorvane::database {

/// One table as it is first created. Columns that came with later releases are added by the
/// upgrade steps, on a new database too, so that every database has the same order of columns.
struct TableDefinition {
  std::string_view name;
  std::string_view columns;
  std::string_view seed_rows;  ///< "(1,'A'),(2,'B')" for a lookup table, else empty
};

struct UpgradeStep {
  std::string_view table;
  std::size_t below;  ///< runs when the table has fewer columns than this
  std::string_view statement;
};

struct IndexDefinition {
  std::string_view table;
  std::string_view name;
  std::string_view columns;
};

std::span<const TableDefinition> Tables();
std::span<const UpgradeStep> UpgradeSteps();
std::span<const IndexDefinition> Indexes();

}  // namespace quorvane::database
