#pragma once

#include <span>
#include <string_view>

namespace quorvane::database {

/// What the schema is made of: tables, steps, indexes, and which column names which table.

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

/// A table beside the 24: with a primary key of its own, made after them by a step of the schema.
/// An older program passes over it.
struct ExtensionTable {
  std::string_view name;
  bool is_record;  ///< belongs to the records: backed up, restored and checked with them
};

std::span<const ExtensionTable> ExtensionTables();

/// What makes the tables and, in later releases, adds columns to them, in the order in which it is
/// run. A table that is missing has no column.
std::span<const UpgradeStep> ExtensionSteps();

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
