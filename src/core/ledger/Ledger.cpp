#include "core/ledger/Ledger.h"

#include "core/database/Keys.h"

#include <fmt/format.h>

#include <cmath>

namespace quorvane::ledger {
namespace {

std::string_view Sign(Posting posting) {
  return posting == Posting::kAdd ? "+" : "-";
}

LotId FindLot(Transaction& transaction, const LotKey& key, LotTable table) {
  auto rows = transaction.Open(
      fmt::format("Select Id From {} Where Cid=? and Fyear=? and AcId=? and ScriptId=? and Rate=?",
                  TableName(table)),
      key.of.client, key.of.year.Text(), key.account, key.scrip, key.rate);
  return rows.Next() ? LotId{rows.Int(std::size_t{0})} : LotId{};
}

}  // namespace

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

LotId PostLot(Transaction& transaction, Posting posting, const LotKey& key, double quantity,
              LotTable table) {
  if (const LotId found = FindLot(transaction, key, table)) {
    AdjustLotQty(transaction, posting, found, quantity, table);
    return found;
  }
  const LotId made{database::NextKey(transaction, "Stock")};
  transaction.Execute(fmt::format("Insert Into {} Values(?,?,?,?,?,?,?)", TableName(table)),
                      key.of.client, key.of.year.Text(), made, key.account, key.scrip,
                      SettleQuantity(quantity), key.rate);
  return made;
}

void AdjustLotQty(Transaction& transaction, Posting posting, LotId lot, double quantity,
                  LotTable table) {
  transaction.Execute(
      fmt::format("Update {} Set Qty=Round(Qty{}?,6) Where Id=?", TableName(table), Sign(posting)),
      quantity, lot);
}

void LockLots(Transaction& transaction, const std::optional<ClientYear>& of) {
  if (of) {
    transaction.Open("Select Count(*) From Stock Where Cid=? and Fyear=? For Update", of->client,
                     of->year.Text());
  } else {
    transaction.Open("Select Count(*) From Stock For Update");
  }
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
