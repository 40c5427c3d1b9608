#include "admin/repair/TableCheck.h"

#include "core/database/Schema.h"

#include <fmt/format.h>

#include <utility>

namespace quorvane::repair {
namespace {

/// Tables and the columns that make their keys.
constexpr std::pair<std::string_view, std::string_view> kKeys[] = {
    {"ClientInfo", "Id"}, {"ClientActDet", "id"}, {"DepPart", "Id"},     {"DpIDs", "id"},
    {"Broker", "Id"},     {"Script", "Id"},       {"StkOpBal", "Id"},    {"BrOpBal", "Id"},
    {"Stock", "Id"},      {"MarketRate", "Id"},   {"SPMaster", "ID"},    {"SPTrans", "SID,Id"},
    {"BrPayment", "Id"},  {"BrRec", "Id"},        {"ScrTransfer", "ID"}, {"TransTaxPer", "Id"}};

std::int64_t CountOf(database::Connection& connection, const std::string& sql) {
  auto rows = connection.Open(sql);
  return rows.Next() ? rows.Int64(0) : 0;
}

}  // namespace

std::vector<TableSize> CountRows(database::Connection& connection) {
  std::vector<TableSize> sizes;
  for (const std::string& table : database::TableNames()) {
    sizes.push_back({table, CountOf(connection, "Select Count(*) From " + table)});
  }
  return sizes;
}

TableCheck CheckTables(database::Connection& connection, Progress& progress) {
  TableCheck check;
  check.sizes = CountRows(connection);
  progress.ThrowIfCancelled();
  for (const auto& [table, columns] : kKeys) {
    const std::int64_t keys = CountOf(
        connection,
        fmt::format("Select Count(*) From (Select 1 From {} Group By {} Having Count(*)>1) T",
                    table, columns));
    if (keys > 0) {
      check.double_keys.push_back({std::string(table), std::string(columns), keys});
    }
    progress.ThrowIfCancelled();
  }
  check.wrong_lots = ledger::CheckStock(connection, std::nullopt, progress);
  return check;
}

}  // namespace quorvane::repair
