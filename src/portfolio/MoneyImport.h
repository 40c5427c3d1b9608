#pragma once

#include "core/database/Transaction.h"
#include "portfolio/MasterImport.h"

namespace quorvane::portfolio {

/// Takes in broker opening balances, payments to and receipts from brokers, and market rates.
void ImportMoney(database::Transaction& transaction, const Portfolio& portfolio,
                 const ResolvedNames& names, ErrorList& errors, ImportResult& result);

}  // namespace quorvane::portfolio
