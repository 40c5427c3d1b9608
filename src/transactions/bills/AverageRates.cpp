#include "transactions/bills/AverageRates.h"

#include "core/database/BulkWriter.h"
#include "core/database/DateSql.h"
#include "core/gains/AverageCost.h"
#include "core/text/Amounts.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

namespace quorvane::bills {
namespace {

using database::Connection;
using database::Transaction;

using Walks = std::map<ScripId, gains::AverageCost>;

constexpr std::string_view kScrips =
    "Select Distinct(ScriptId) From Stock Where Cid=? and Fyear=? and AcId=?";
constexpr std::string_view kOpenings =
    "Select ScriptId,Sum(Qty),Sum(Total)+Sum(STax) From Script,StkOpBal Where Script.Id=ScriptId "
    "and CId=? and Fyear=? and AcId=? Group By ScriptId";
constexpr std::string_view kLines =
    "Select ScriptId,SP,Qty,Amt,STax From Script,SPTrans,SPMaster Where SPTrans.Cid=? and "
    "SPTrans.Fyear=? and SPMaster.ID=SID and SPMaster.AcId=? and SPTrans.ScriptId=Script.Id "
    "Order By {},SPTrans.SID,SPTrans.Id";

/// The account's rows of a query whose first column is the scrip, for the scrips walked.
template <class Visit>
void ForEachRow(Transaction& transaction, std::string_view sql, const ClientYear& of,
                AccountId account, Walks& walks, const Visit& visit) {
  for (const auto& row : transaction.Open(sql, of.client, of.year.Text(), account)) {
    const auto walk = walks.find(ScripId{row.Int(std::size_t{0})});
    if (walk != walks.end()) {
      visit(walk->second, row);
    }
  }
}

Walks WalkAccount(Transaction& transaction, const ClientYear& of, AccountId account) {
  Walks walks;
  for (const auto& row : transaction.Open(kScrips, of.client, of.year.Text(), account)) {
    walks.try_emplace(ScripId{row.Int(std::size_t{0})});
  }
  ForEachRow(transaction, kOpenings, of, account, walks,
             [](gains::AverageCost& walk, const auto& row) {
               walk.Receive(row.Double(1), text::ToPaise(row.Double(2)));
             });
  ForEachRow(transaction, fmt::format(kLines, database::DateOf("SPMaster.BDate")), of, account,
             walks, [](gains::AverageCost& walk, const auto& row) {
               if (row.Int(1) == 1) {
                 walk.Receive(row.Double(2), text::ToPaise(row.Double(3) + row.Double(4)));
               } else {
                 walk.Release(row.Double(2));
               }
             });
  return walks;
}

bool AreStored(Transaction& transaction, const ClientYear& of, AccountId account,
               const Walks& walks) {
  const std::vector<AverageRate> stored =
      ReadAverageRates(transaction.GetConnection(), of, account);
  return std::ranges::equal(stored, walks, [](const AverageRate& rate, const auto& walk) {
    return rate.scrip == walk.first && rate.rate == walk.second.Average();
  });
}

void Store(Transaction& transaction, const ClientYear& of, AccountId account, const Walks& walks) {
  if (AreStored(transaction, of, account, walks)) {
    return;
  }
  transaction.Execute("Delete From ScriptAvgRate Where Cid=? and Fyear=? and AcId=?", of.client,
                      of.year.Text(), account);
  constexpr int kEveryBroker = 0;
  database::BulkWriter writer(transaction, "Insert Into ScriptAvgRate Values(?,?,?,?,?,?)",
                              "itiiid");
  for (const auto& [scrip, walk] : walks) {
    writer.Int(of.client.value)
        .Text(of.year.Utf8())
        .Int(account.value)
        .Int(scrip.value)
        .Int(kEveryBroker)
        .Double(walk.Average())
        .EndRow();
  }
  writer.Finish();
}

}  // namespace

void RebuildAverageRates(Connection& connection, const ClientYear& of, AccountId account) {
  database::InTransaction(connection, [&](Transaction& transaction) {
    Store(transaction, of, account, WalkAccount(transaction, of, account));
    return MaybeRefusal();
  });
}

std::vector<AverageRate> ReadAverageRates(Connection& connection, const ClientYear& of,
                                          AccountId account) {
  std::vector<AverageRate> rates;
  for (const auto& row : connection.Open(
           "Select ScriptId,AvgRate From ScriptAvgRate Where Cid=? and Fyear=? and AcId=? "
           "Order By ScriptId",
           of.client, of.year.Text(), account)) {
    rates.push_back({ScripId{row.Int(std::size_t{0})}, row.Double(1)});
  }
  return rates;
}

}  // namespace quorvane::bills
