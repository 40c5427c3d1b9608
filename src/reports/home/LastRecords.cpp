#include "reports/home/LastRecords.h"

#include <fmt/format.h>

namespace quorvane::home {
namespace {

using database::Connection;

constexpr int kBills = 6;
constexpr int kOthers = 3;

struct Source {
  LastRecord::Kind kind;
  int count;
  const char* columns;  // date, text, amount
  const char* table;    // with what the text is taken from
};
constexpr Source kSources[] = {
    {LastRecord::Kind::kBill, kBills, "r.BDate,r.BillNo,r.Total", "SPMaster r"},
    {LastRecord::Kind::kPayment, kOthers, "r.PDate,b.Name,r.Amt",
     "BrPayment r Left Join Broker b On b.Id=r.BrId"},
    {LastRecord::Kind::kReceipt, kOthers, "r.PDate,b.Name,r.Amt",
     "BrRec r Left Join Broker b On b.Id=r.BrId"},
    {LastRecord::Kind::kTransfer, kOthers, "r.TDate,s.Name,r.Qty",
     "ScrTransfer r Left Join Script s On s.Id=r.ScrId"},
};

}  // namespace

std::vector<LastRecord> ReadLastRecords(Connection& connection, const QString& family) {
  std::vector<LastRecord> records;
  for (const Source& source : kSources) {
    const std::string sql = fmt::format(
        "Select r.ID,r.Cid,r.Fyear,c.Name,{} From {} Join ClientInfo c On c.Id=r.Cid Where ?='' or "
        "c.GCode=? Order By r.ID Desc Limit {}",
        source.columns, source.table, source.count);
    for (const auto& row : connection.Open(sql, family, family)) {
      if (const auto year = text::FinancialYear::Parse(row.Text(2))) {
        records.push_back({source.kind, row.Int(0), ClientYear{ClientId{row.Int(1)}, *year},
                           row.Text(3), row.Text(4), row.Text(5), row.Double(6)});
      }
    }
  }
  return records;
}

}  // namespace quorvane::home
