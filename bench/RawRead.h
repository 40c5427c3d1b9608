#pragma once

#include "core/database/Connection.h"
#include "core/text/FinancialYear.h"

#include <cstddef>

namespace quorvane::bench {

/// Reads the columns that a statement of every client is made of, row by row, and drops them: its
/// time is that of the database and the connection alone. Returns the number of rows.
std::size_t ReadAndDrop(database::Connection& connection, text::FinancialYear year);

}  // namespace quorvane::bench
