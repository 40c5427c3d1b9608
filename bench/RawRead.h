#pragma once

#include "core/database/Connection.h"
#include "core/text/FinancialYear.h"

#include <cstddef>

namespace quorvane::bench {

/// Reads the columns that a statement of every client is made of, row by row, and drops them: what
/// the database and the way to it cost alone. Returns the number of rows.
std::size_t ReadAndDrop(database::Connection& connection, text::FinancialYear year);

}  // namespace quorvane::bench
