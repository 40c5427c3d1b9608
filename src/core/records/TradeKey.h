#pragma once

#include "core/records/Cells.h"
#include "core/records/Table.h"

namespace quorvane::records {

/// A trade of a broker's file that is in a bill: it does not come in again.
struct TradeKey {
  AccountId account;
  QString trade_key;  ///< what tells the trade from all others of the account
  BillId bill;
};

template <>
struct Table<TradeKey> {
  static constexpr std::string_view kName = "TradeKey";
  static constexpr auto kColumns =
      std::tuple(Column{"AcId", &TradeKey::account}, Column{"TradeKey", &TradeKey::trade_key},
                 Column{"BillId", &TradeKey::bill});
};

}  // namespace quorvane::records
