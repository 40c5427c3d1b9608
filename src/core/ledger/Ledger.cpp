#include "core/ledger/Ledger.h"

#include "core/database/Keys.h"

#include <fmt/format.h>

#include <cmath>

namespace quorvane::ledger {
std::string_view TableName(LotTable table) {
  return table == LotTable::kStock ? "Stock" : "Stock_Temp";
}

double SettleQuantity(double quantity) {
  constexpr double kSixDecimals = 1e6;
  // Beyond this a double has no six decimals to round to.
  constexpr double kLargest = 1e9;
  if (!(std::abs(quantity) < kLargest)) {
    return quantity;
  }
  const double settled = std::round(quantity * kSixDecimals) / kSixDecimals;
  return settled == 0 ? 0 : settled;
}

std::vector<Lot> ReadLots(Connection& connection, const ClientYear& of,
                          std::optional<AccountId> account, LotTable table) {
  std::string sql = fmt::format("Select Id,AcId,ScriptId,Qty,Rate From {} Where Cid=? and Fyear=?",
                                TableName(table));
  std::vector<database::Value> values{of.client, of.year.Text()};
  if (account) {
    sql += " and AcId=?";
    values.emplace_back(*account);
  }
  std::vector<Lot> lots;
  for (const auto& row : connection.OpenValues(sql + " Order By Id", values)) {
    lots.push_back({LotId{row.Int(std::size_t{0})}, AccountId{row.Int(1)}, ScripId{row.Int(2)},
                    row.Double(3), row.Double(4)});
  }
  return lots;
}

}  // namespace quorvane::ledger
