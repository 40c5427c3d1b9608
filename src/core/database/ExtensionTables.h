#pragma once

#include "core/database/SchemaTables.h"

#include <span>
#include <string_view>

namespace quorvane::database {

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

}  // namespace quorvane::database
