#pragma once

#include "core/ClientYear.h"
#include "core/database/Transaction.h"
#include "transactions/opening_stock/OpeningStock.h"

#include <optional>
#include <span>
#include <vector>

namespace quorvane::opening_stock {

/// The rows of StkOpBal of a client and year. They know nothing of the ledger.

enum class Locking : std::uint8_t { kPlain, kForUpdate };

/// In the order of their ids; only the one of `id` when it is given.
std::vector<OpeningLot> ReadRows(database::Connection& connection, const ClientYear& of,
                                 Locking locking, std::optional<OpeningId> id = std::nullopt);

void DeleteRows(database::Transaction& transaction, const ClientYear& of,
                std::span<const OpeningLot> rows);

/// Inserts the rows under ids of their own, or under the next free ones when they have none, and
/// sets those.
void InsertRows(database::Transaction& transaction, const ClientYear& of,
                std::span<OpeningLot> rows);

}  // namespace quorvane::opening_stock
