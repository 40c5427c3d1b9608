#pragma once

#include "core/ClientYear.h"
#include "core/database/Transaction.h"
#include "core/ledger/Lots.h"

#include <optional>
#include <vector>

namespace quorvane::ledger {

/// The holdings ledger, or the scratch copy on which a bill or a transfer is edited.
enum class LotTable { kStock, kStockTemp };

struct Lot {
  LotId id;
  AccountId account;
  ScripId scrip;
  double quantity = 0;  ///< shares; may be 0
  double rate = 0;      ///< rupees a share
};

/// The lots of a client and year, in the order of their ids; of one account when it is given.
std::vector<Lot> ReadLots(Connection& connection, const ClientYear& of,
                          std::optional<AccountId> account = std::nullopt,
                          LotTable table = LotTable::kStock);

/// A quantity of shares free of binary dust: rounded to six decimals.
double SettleQuantity(double quantity);

std::string_view TableName(LotTable table);

}  // namespace quorvane::ledger
