#pragma once

#include "core/Progress.h"
#include "core/ledger/Ledger.h"

#include <vector>

namespace quorvane::ledger {

/// What a rebuild finds wrong with one lot.
struct LotChange {
  ClientYear of;
  Lot lot;                 ///< as it stands in the ledger
  double quantity = 0;     ///< what opening stock, bills and transfers say
  bool duplicate = false;  ///< a second row of one lot; the rebuild drops it
};

/// Compares the lots of the ledger with opening stock + purchases + transfers - sales. Changes
/// nothing. One query a table, whatever the number of lots. Without `of`, every client and year.
/// Lots are given in the order of their ids.
std::vector<LotChange> CheckStock(Connection& connection, const std::optional<ClientYear>& of,
                                  Progress& progress);

/// Recomputes the quantity of every lot that exists; lots that are missing are not made. Empties
/// the scratch copy. A bill that another program saves meanwhile is counted or waits (LockLots), so
/// the caller's transaction must not have read anything plainly before. Returns the number of lots
/// changed.
std::size_t RebuildStock(Transaction& transaction, const std::optional<ClientYear>& of,
                         Progress& progress);

/// The same in a transaction of its own.
std::size_t RebuildStock(Connection& connection, const std::optional<ClientYear>& of,
                         Progress& progress);

}  // namespace quorvane::ledger
