#include "core/tax/FairValues.h"

#include "core/database/DateSql.h"
#include "core/records/Tax.h"
#include "core/records/Writing.h"
#include "core/text/Amounts.h"
#include "core/text/FinancialYear.h"
#include "core/text/Tr.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <unordered_set>
#include <utility>

namespace quorvane::tax {
namespace {

using database::Connection;
using database::Transaction;

constexpr double kMostRupees = 1e8;  ///< a share

using Holding = std::pair<ClientId, ScripId>;

/// What the server makes a date of an empty text is before any other.
std::string UpToDay(std::string_view column) {
  return database::DateOf(column) + " Between '1000-01-01' and ?";
}

std::string TheDay() {
  return fmt::format("{:%F}", kFairValueDay);
}

/// Of the bills up to the day. Lines and bills are joined here: a server that has no statistics of
/// new tables yet compares each line with each bill.
void AddPurchases(Connection& connection, std::set<Holding>& acquired) {
  std::unordered_set<BillId> bills;
  for (const auto& row : connection.Open(
           fmt::format("Select ID From SPMaster Where {}", UpToDay("BDate")), TheDay())) {
    bills.insert(BillId{row.Int(0)});
  }
  for (const auto& row :
       connection.Open("Select Cid,ScriptId,SID From SPTrans Where SP=1 and Coalesce(FO,0)=0")) {
    if (bills.contains(BillId{row.Int(2)})) {
      acquired.emplace(ClientId{row.Int(0)}, ScripId{row.Int(1)});
    }
  }
}

/// Who acquired what up to the day. Opening stock of the day's year and of earlier ones was held
/// then, whatever day it names.
std::set<Holding> AcquiredByDay(Connection& connection) {
  const std::string year = text::FinancialYear::Of(kFairValueDay).Utf8();
  const std::string sql = fmt::format(
      "Select CId,ScriptId From StkOpBal Where Coalesce(FO,0)=0 and (Fyear<=? or {}) "
      "Union Select CId,ToScrId From CorpActionLot Where InQty>0 and FO=0 and {}",
      UpToDay("PDate"), UpToDay("Acquired"));
  std::set<Holding> acquired;
  for (const auto& row : connection.Open(sql, year, TheDay(), TheDay())) {
    acquired.emplace(ClientId{row.Int(0)}, ScripId{row.Int(1)});
  }
  AddPurchases(connection, acquired);
  return acquired;
}

struct Gift {
  ClientId from;
  ClientId to;
  ScripId scrip;
};

std::vector<Gift> GiftsBetweenClients(Connection& connection) {
  std::vector<Gift> gifts;
  for (const auto& row : connection.Open(
           "Select Distinct Cid,ToClientID,ScrId From ScrTransfer Where Cid<>ToClientID")) {
    gifts.push_back({ClientId{row.Int(0)}, ClientId{row.Int(1)}, ScripId{row.Int(2)}});
  }
  return gifts;
}

}  // namespace

FairValues ReadFairValues(Connection& connection) {
  FairValues values;
  for (const auto& row : connection.Open("Select ScrId,Rate From FairValue")) {
    values.emplace(ScripId{row.Int(0)}, row.Double(1));
  }
  return values;
}

MaybeRefusal CheckFairValue(double rate) {
  if (!(rate > 0) || rate > kMostRupees) {
    return Refusal{Tr("Tax", "Enter a Rate Above Zero, of at Most %1 Rupees.")
                       .arg(text::NumberText(kMostRupees)),
                   Field::kRate};
  }
  return std::nullopt;
}

void SaveFairValue(Transaction& transaction, ScripId scrip, double rate) {
  SaveFairValues(transaction, {{scrip, rate}});
}

void SaveFairValues(Transaction& transaction, const FairValues& values) {
  std::vector<ScripId> scrips;
  std::vector<records::FairValue> rows;
  for (const auto& [scrip, rate] : values) {
    scrips.push_back(scrip);
    rows.push_back({scrip, rate});
  }
  RemoveFairValues(transaction, scrips);
  records::Insert(transaction, std::span<const records::FairValue>(rows));
}

void RemoveFairValue(Transaction& transaction, ScripId scrip) {
  RemoveFairValues(transaction, {scrip});
}

void RemoveFairValues(Transaction& transaction, const std::vector<ScripId>& scrips) {
  records::DeleteNaming(transaction, &records::FairValue::scrip, std::span(scrips));
}

std::set<ScripId> ScripsAcquiredByFairValueDay(Connection& connection) {
  std::set<ScripId> scrips;
  for (const auto& [client, scrip] : AcquiredByDay(connection)) {
    scrips.insert(scrip);
  }
  return scrips;
}

std::set<ScripId> ScripsAcquiredByFairValueDay(Connection& connection, ClientId client) {
  std::set<Holding> acquired = AcquiredByDay(connection);
  const std::vector<Gift> gifts = GiftsBetweenClients(connection);
  for (std::size_t before = 0; before != acquired.size();) {
    before = acquired.size();
    for (const Gift& gift : gifts) {
      if (acquired.contains({gift.from, gift.scrip})) {
        acquired.emplace(gift.to, gift.scrip);
      }
    }
  }
  std::set<ScripId> scrips;
  for (auto held = acquired.lower_bound({client, {}});
       held != acquired.end() && held->first == client; ++held) {
    scrips.insert(held->second);
  }
  return scrips;
}

}  // namespace quorvane::tax
