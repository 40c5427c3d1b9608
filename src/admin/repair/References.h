#pragma once

#include "core/database/Connection.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane::repair {

/// Rows of a table that name a record which is not there. Reports pass over such rows or show them
/// without a name.
struct Dangling {
  std::string table;
  std::string column;
  std::string names;  ///< table of the missing records
  std::int64_t rows = 0;
};

/// A reference to look into, "SPTrans.SID names a SPMaster.ID".
struct Reference {
  const char* table;
  const char* column;
  const char* names;
  const char* key;
};

/// Every reference between the tables, in their order.
const std::vector<Reference>& References();

/// How many rows name a record that is not there. NULL and 0 name none.
std::int64_t CountDangling(database::Connection& connection, const Reference& reference);

}  // namespace quorvane::repair
