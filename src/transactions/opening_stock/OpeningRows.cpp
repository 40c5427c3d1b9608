#include "transactions/opening_stock/OpeningRows.h"

#include "core/database/BulkWriter.h"
#include "core/database/Keys.h"

#include <algorithm>

namespace quorvane::opening_stock {
namespace {

using database::BulkWriter;
using database::Recordset;
using database::Transaction;

OpeningLot LotOf(const Recordset& row) {
  OpeningLot lot;
  lot.id = OpeningId{row.Int(std::size_t{0})};
  lot.scrip = ScripId{row.Int(1)};
  lot.quantity = row.Double(2);
  lot.rate = row.Double(3);
  lot.total = row.Double(4);
  lot.account = AccountId{row.Int(5)};
  lot.purchase_date = row.Text(6);
  lot.service_tax = row.Double(7);
  lot.brokerage = row.Double(8);
  lot.stt = row.Double(9);
  lot.fo = row.Int(10) != 0;
  return lot;
}

void GiveIds(Transaction& transaction, std::span<OpeningLot> rows) {
  const auto is_new = [](const OpeningLot& row) { return !row.id; };
  const auto count = std::ranges::count_if(rows, is_new);
  if (count == 0) {
    return;
  }
  int next = database::NextKeys(transaction, "StkOpBal", static_cast<int>(count));
  for (OpeningLot& row : rows) {
    if (is_new(row)) {
      row.id = OpeningId{next++};
    }
  }
}

}  // namespace

std::vector<OpeningLot> ReadRows(database::Connection& connection, const ClientYear& of,
                                 Locking locking, std::optional<OpeningId> id) {
  std::string sql =
      "Select Id,ScriptId,Qty,Rate,Total,AcId,PDate,STax,Brk,STT,FO From StkOpBal Where CId=? and "
      "Fyear=?";
  std::vector<database::Value> values{of.client, of.year.Text()};
  if (id) {
    sql += " and Id=?";
    values.emplace_back(*id);
  }
  sql += " Order By Id";
  sql += locking == Locking::kForUpdate ? " For Update" : "";
  std::vector<OpeningLot> lots;
  for (const auto& row : connection.OpenValues(sql, values)) {
    lots.push_back(LotOf(row));
  }
  return lots;
}

void DeleteRows(Transaction& transaction, const ClientYear& of, std::span<const OpeningLot> rows) {
  BulkWriter writer(transaction, "Delete From StkOpBal Where Id=? and CId=? and Fyear=?", "iit");
  for (const OpeningLot& row : rows) {
    writer.Int(row.id.value).Int(of.client.value).Text(of.year.Utf8()).EndRow();
  }
  writer.Finish();
}

void InsertRows(Transaction& transaction, const ClientYear& of, std::span<OpeningLot> rows) {
  GiveIds(transaction, rows);
  BulkWriter writer(transaction,
                    "Insert Into StkOpBal(CId,Fyear,Id,ScriptId,Qty,Rate,Total,AcId,PDate,STax,Brk,"
                    "STT,FO) Values(?,?,?,?,?,?,?,?,?,?,?,?,?)",
                    "itiidddi"
                    "tdddi");
  for (const OpeningLot& row : rows) {
    writer.Int(of.client.value)
        .Text(of.year.Utf8())
        .Int(row.id.value)
        .Int(row.scrip.value)
        .Double(row.quantity)
        .Double(row.rate)
        .Double(row.total)
        .Int(row.account.value)
        .Text(row.purchase_date.toStdString())
        .Double(row.service_tax)
        .Double(row.brokerage)
        .Double(row.stt)
        .Int(row.fo ? 1 : 0)
        .EndRow();
  }
  writer.Finish();
}

}  // namespace quorvane::opening_stock
