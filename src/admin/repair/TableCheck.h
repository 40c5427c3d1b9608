#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/ledger/Rebuild.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane::repair {

struct TableSize {
  std::string table;
  std::int64_t rows = 0;
};

/// A key that the program keeps unique by itself and that stands more than once.
struct DoubleKey {
  std::string table;
  std::string columns;
  std::int64_t keys = 0;  ///< how many of them
};

/// What a look through the whole database finds.
struct TableCheck {
  std::vector<TableSize> sizes;  ///< every table, in the order of its creation
  std::vector<DoubleKey> double_keys;
  std::vector<ledger::LotChange> wrong_lots;

  bool AllIsWell() const { return double_keys.empty() && wrong_lots.empty(); }
};

/// The number of rows of every table, in the order of its creation.
std::vector<TableSize> CountRows(database::Connection& connection);

/// Changes nothing. Throws DatabaseError or Cancellation.
TableCheck CheckTables(database::Connection& connection, Progress& progress);

}  // namespace quorvane::repair
