#pragma once

#include "bench/Portfolio.h"
#include "core/database/Connection.h"

namespace quorvane::bench {

/// Writes a portfolio into a database whose tables were prepared and are empty. The holdings ledger
/// is what the documents add up to, so that a rebuild finds nothing to change.
void FillDatabase(database::Connection& connection, const Portfolio& portfolio);

}  // namespace quorvane::bench
