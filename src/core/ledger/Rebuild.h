#pragma once

#include "core/Progress.h"
#include "core/ledger/Lots.h"
#include "core/records/Faults.h"

#include <optional>
#include <vector>

namespace quorvane::ledger {

/// What a rebuild finds wrong with one lot.
struct LotChange {
  records::Lot lot;        ///< as it is in the ledger
  Shares quantity;         ///< what opening stock, bills and transfers say
  bool duplicate = false;  ///< a second row of one lot; the rebuild drops it
};

struct StockCheck {
  std::vector<LotChange> changes;  ///< in the order of the lots' numbers
  records::Faults faults;          ///< records that could not count as they are written
};

/// Compares the lots of the ledger with opening stock + purchases + transfers - sales. Changes
/// nothing. One query a table, however many lots there are. Without `of`, every client and year.
StockCheck CheckStock(Connection& connection, const std::optional<ClientYear>& of,
                      Progress& progress);

/// Sets the quantity of every lot that exists to what CheckStock finds; lots that are missing are
/// not made. Empties the scratch copy. A bill that another program saves meanwhile is counted or
/// waits (LockLots), so the caller's transaction must not have read anything without locks before.
/// Returns the number of lots changed.
std::size_t RebuildStock(Transaction& transaction, const std::optional<ClientYear>& of,
                         Progress& progress);

/// The same in a transaction of its own.
std::size_t RebuildStock(Connection& connection, const std::optional<ClientYear>& of,
                         Progress& progress);

}  // namespace quorvane::ledger
