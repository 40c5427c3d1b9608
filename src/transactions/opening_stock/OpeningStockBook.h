#pragma once

#include "core/ClientYear.h"
#include "core/Progress.h"
#include "core/Result.h"
#include "core/database/Transaction.h"
#include "core/gains/RemainingLots.h"
#include "transactions/opening_stock/OpeningStock.h"

#include <cstddef>
#include <span>
#include <vector>

namespace quorvane::opening_stock {

/// The opening lots of a client and year, each posted into its lot of the holdings ledger. Every
/// save and delete is one transaction; one that is refused, or that throws DatabaseError, changes
/// nothing. A change or delete is refused when it would leave a lot below zero because its shares
/// were sold or transferred.
class OpeningStockBook {
 public:
  OpeningStockBook(database::Connection& connection, const ClientYear& of);

  /// In the order of their ids.
  std::vector<OpeningLot> List() const;

  /// Writes a new lot, or a changed one in place of the old. Returns its id. Refused when a
  /// check fails, when the client or a newly chosen account was deleted meanwhile, or when a lot of
  /// the ledger would be lowered below zero.
  Result<OpeningId> Save(const OpeningLot& lot);

  MaybeRefusal Delete(OpeningId id);

 private:
  database::Connection& connection_;
  ClientYear of_;
};

/// Whether the client has lots left of the year before.
bool HasLotsToCarryForward(database::Connection& connection, const ClientYear& of);

/// Computes what is left of the year before (gains::RemainingLots of the client) and writes it as
/// opening lots of the year, in one transaction: what another program records in either year
/// meanwhile is counted or waits. Returns their number.
Result<std::size_t> CarryForward(database::Connection& connection, const ClientYear& of,
                                 Progress& progress);

/// Writes these lots as opening lots of the year, as part of a caller's transaction. Opening rows
/// that are identical to a carried lot are replaced by it, so doing it twice leaves one row a lot.
/// Carried lots that are identical to each other all stay.
MaybeRefusal CarryForward(database::Transaction& transaction, const ClientYear& of,
                          std::span<const gains::RemainingLot> lots);

}  // namespace quorvane::opening_stock
