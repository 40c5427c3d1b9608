#pragma once

#include "core/Ids.h"
#include "core/database/Transaction.h"
#include "portfolio/trades/TradeLayouts.h"
#include "portfolio/trades/TradeScrips.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace quorvane::portfolio {

// What the database remembers of imports: how headers were mapped, which scrips were meant, and
// which trades were taken in. Each throws DatabaseError.

/// The columns of a header that a user mapped before.
std::optional<ColumnMap> RememberedColumns(database::Connection& connection,
                                           const std::string& header_text);

/// Keeps them in place of those kept before.
void RememberColumns(database::Transaction& transaction, const std::string& header_text,
                     const ColumnMap& map);

ConfirmedScrips ConfirmedScripsOf(database::Connection& connection, BrokerId broker);
void RememberScrips(database::Transaction& transaction, BrokerId broker,
                    const ConfirmedScrips& scrips);

/// Identities of the trades of an account that were taken in and whose bill is still there.
std::unordered_set<std::string> TakenTrades(database::Connection& connection, AccountId account);

/// The same with their bills.
std::map<std::string, BillId> TakenTradeBills(database::Connection& connection, AccountId account);

/// The identity of a trade and the bill that it came into.
struct TakenTrade {
  std::string key;
  BillId bill;
};

void RememberTrades(database::Transaction& transaction, AccountId account,
                    const std::vector<TakenTrade>& trades);

/// What was bought or sold of a scrip on a day by bills that no import made.
struct EnteredTotal {
  text::Date day;
  ScripId scrip;
  records::Side side = records::Side::kPurchase;
  text::Shares quantity;
};

std::vector<EnteredTotal> EnteredTotals(database::Connection& connection, ClientId client,
                                        AccountId account);

}  // namespace quorvane::portfolio
