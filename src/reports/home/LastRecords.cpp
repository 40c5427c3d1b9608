#include "reports/home/LastRecords.h"

#include <fmt/format.h>

#include <string>

namespace quorvane::home {
namespace {

using database::Connection;

constexpr int kBills = 6;
constexpr int kOthers = 3;

struct Source {
  LastRecord::Kind kind;
  int count;
  const char* table;
  const char* columns;  // day, what it is about, amount
  const char* about;    // its text, and what it is joined with for it
  const char* join;
};
constexpr Source kSources[] = {
    {LastRecord::Kind::kBill, kBills, "SPMaster", "BDate D,BillNo T,Total A", "r.T", ""},
    {LastRecord::Kind::kPayment, kOthers, "BrPayment", "PDate D,BrId T,Amt A", "t.Name",
     "Left Join Broker t On t.Id=r.T"},
    {LastRecord::Kind::kReceipt, kOthers, "BrRec", "PDate D,BrId T,Amt A", "t.Name",
     "Left Join Broker t On t.Id=r.T"},
    {LastRecord::Kind::kTransfer, kOthers, "ScrTransfer", "TDate D,ScrId T,Qty A", "t.Name",
     "Left Join Script t On t.Id=r.T"},
};

/// The newest rows are found first, by the index of the keys; only they are joined.
std::string QueryOf(const Source& source, std::size_t clients) {
  std::string where;
  for (std::size_t client = 0; client < clients; ++client) {
    where += where.empty() ? " Where Cid In (?" : ",?";
  }
  where += where.empty() ? "" : ")";
  return fmt::format(
      "Select r.ID,r.Cid,r.Fyear,c.Name,r.D,{},r.A From (Select ID,Cid,Fyear,{} From {}{} Order By "
      "ID Desc Limit {}) r Join ClientInfo c On c.Id=r.Cid {} Order By r.ID Desc",
      source.about, source.columns, source.table, where, source.count, source.join);
}

std::vector<database::Value> ClientsOf(Connection& connection, const QString& family) {
  std::vector<database::Value> clients;
  if (!family.isEmpty()) {
    for (const auto& row : connection.Open("Select Id From ClientInfo Where GCode=?", family)) {
      clients.emplace_back(row.Int(0));
    }
  }
  return clients;
}

}  // namespace

std::vector<LastRecord> ReadLastRecords(Connection& connection, const QString& family) {
  const std::vector<database::Value> clients = ClientsOf(connection, family);
  std::vector<LastRecord> records;
  if (!family.isEmpty() && clients.empty()) {
    return records;
  }
  for (const Source& source : kSources) {
    for (const auto& row : connection.OpenValues(QueryOf(source, clients.size()), clients)) {
      if (const auto year = text::FinancialYear::Parse(row.Text(2))) {
        records.push_back({source.kind, row.Int(0), ClientYear{ClientId{row.Int(1)}, *year},
                           row.Text(3), row.Text(4), row.Text(5), row.Double(6)});
      }
    }
  }
  return records;
}

}  // namespace quorvane::home
