#pragma once

#include "core/ledger/StockCheck.h"

namespace quorvane::ledger {

/// Sets the quantity of every lot that exists to what CheckStock finds; lots that are missing are
/// not made. Empties the scratch copy. A bill that another program saves meanwhile is counted or
/// waits (LockLots), so the caller's transaction must not have read anything plainly before.
/// Returns the number of lots changed.
std::size_t RebuildStock(Transaction& transaction, const std::optional<ClientYear>& of,
                         Progress& progress);

/// The same in a transaction of its own.
std::size_t RebuildStock(Connection& connection, const std::optional<ClientYear>& of,
                         Progress& progress);

}  // namespace quorvane::ledger
