#pragma once

#include "core/Ids.h"
#include "core/database/Connection.h"
#include "core/database/KeyReferences.h"

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

/// Lines whose bill is gone. They count nowhere, and no new bill takes them over.
struct LostLines {
  ClientId client;
  std::string year;
  BillId bill;
  std::int64_t lines = 0;
};

/// The references to look into; not those of the scratch table.
std::vector<database::KeyReference> CheckedReferences();

/// How many rows name a record that is not there. NULL and 0 name none.
std::int64_t CountDangling(database::Connection& connection,
                           const database::KeyReference& reference);

/// By bill.
std::vector<LostLines> FindLostLines(database::Connection& connection);

}  // namespace quorvane::repair
