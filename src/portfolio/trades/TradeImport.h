#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "core/database/Transaction.h"
#include "portfolio/trades/TradePlan.h"

#include <QStringList>

#include <string>
#include <vector>

namespace quorvane::portfolio {

/// Whose trades they are.
struct TradeTarget {
  ClientId client;
  AccountId account;
  BrokerId broker;
  std::string client_code;
  std::string account_number;
  std::string broker_name;
};

/// What an import of trades wrote, or would write.
struct TradeOutcome {
  std::size_t trades = 0;
  std::size_t bills = 0;
  std::size_t lines = 0;
  std::size_t carried = 0;  ///< opening lots that were carried forward between the years
  std::size_t scrips = 0;   ///< that are new
  QStringList notes;        ///< what else the user should know
};

/// The columns of a header, to be remembered for the next file.
struct MappedHeader {
  std::string header_text;
  ColumnMap map;
};

/// Looks which ticked sales have shares, as saving would, and marks the others in the plan. Writes
/// nothing. Refused for what no choice of lines can mend. Throws DatabaseError and Cancellation.
Result<TradeOutcome> CheckTrades(database::Connection& connection, const TradeTarget& target,
                                 TradePlan& plan, Progress& progress);

/// Makes bills of the plan's ticked lines and takes them in by the import of portfolio folders: one
/// bill a day, exchange and bill number; sales without a lot use up the oldest purchases. What is
/// left of a year that the trades leave behind is carried forward where the next one has no opening
/// stock of the account yet. The identities of the trades, ISINs, confirmed scrips and mapped
/// headers are kept in the same transaction. Refused, and nothing written, while a ticked line is
/// open or impossible. Recorded lines of the account and broker that are matched with new ones on
/// their day become lines without delivery. Throws DatabaseError and Cancellation.
Result<TradeOutcome> SaveTrades(database::Connection& connection, const TradeTarget& target,
                                TradePlan& plan, const std::vector<MappedHeader>& headers,
                                Progress& progress);

}  // namespace quorvane::portfolio
