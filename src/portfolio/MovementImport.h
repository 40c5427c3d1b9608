#pragma once

#include "core/Progress.h"
#include "core/database/Transaction.h"
#include "portfolio/MasterImport.h"

namespace quorvane::portfolio {

/// Takes in opening lots, bills and transfers in the order of their dates and posts them to the
/// holdings ledger. On one date bills come in file order, in a bill purchases before sales, then
/// transfers; a bill that lacks shares is tried again after the date's transfers that are possible.
/// Writes nothing when there is an error.
void ImportMovements(database::Transaction& transaction, const Portfolio& portfolio,
                     const ResolvedNames& names, ErrorList& errors, ImportResult& result,
                     Progress& progress);

}  // namespace quorvane::portfolio
