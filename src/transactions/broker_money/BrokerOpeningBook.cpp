#include "transactions/broker_money/BrokerOpeningBook.h"

#include "core/database/BulkWriter.h"
#include "core/database/Keys.h"
#include "core/database/RecordKey.h"
#include "core/text/Amounts.h"

#include <QCoreApplication>

#include <map>

namespace quorvane::broker_money {
namespace {

using database::Connection;
using database::Transaction;

struct Balance {
  std::int64_t paise = 0;  ///< credit positive
  bool recorded = false;   ///< there is something that it is made of
};

using Balances = std::map<BrokerId, Balance>;

constexpr std::string_view kInsert =
    "Insert Into BrOpBal(CId,Fyear,Id,BrId,OpBal,Dr) Values(?,?,?,?,?,?)";

void InsertRow(Transaction& transaction, const ClientYear& of, const BrokerOpening& opening) {
  transaction.Execute(kInsert, of.client, of.year.Text(), opening.id, opening.broker,
                      opening.amount, static_cast<int>(*opening.side));
}

bool IsTaken(Transaction& transaction, const ClientYear& of, const BrokerOpening& opening) {
  return transaction
      .Open("Select BrId From BrOpBal Where CId=? and Fyear=? and BrId=? and Id<>? For Update",
            of.client, of.year.Text(), opening.broker, opening.id)
      .Next();
}

/// Adds `sign` times the rows' amounts. Each row is taken in whole paise, as the ledger shows it.
void AddUp(Transaction& transaction, const ClientYear& of, std::string_view sql, int sign,
           Balances& balances) {
  for (const auto& row : transaction.Open(sql, of.client, of.year.Text())) {
    const auto broker = balances.find(BrokerId{row.Int(std::size_t{0})});
    if (broker != balances.end()) {
      broker->second.paise += sign * text::ToPaise(row.Double(1));
      broker->second.recorded = true;
    }
  }
}

Balances ClosingBalances(Transaction& transaction, const ClientYear& of) {
  Balances balances;
  for (const auto& row : transaction.Open("Select Id From Broker")) {
    balances.try_emplace(BrokerId{row.Int(std::size_t{0})});
  }
  AddUp(transaction, of,
        "Select BrId,Case When Dr=0 Then -OpBal Else OpBal End From BrOpBal Where CId=? and "
        "Fyear=? Lock In Share Mode",
        1, balances);
  AddUp(transaction, of,
        "Select BrokId,Total From SPMaster Where Cid=? and Fyear=? Lock In Share Mode", -1,
        balances);
  AddUp(transaction, of,
        "Select BrId,Amt From BrPayment Where Cid=? and Fyear=? Lock In Share Mode", -1, balances);
  AddUp(transaction, of, "Select BrId,Amt From BrRec Where Cid=? and Fyear=? Lock In Share Mode", 1,
        balances);
  return balances;
}

/// A balance that was typed for a broker of whom the year before knows nothing stays: nothing else
/// tells it.
void KeepOthers(Transaction& transaction, const ClientYear& of, Balances& balances) {
  for (const auto& row :
       transaction.Open("Select BrId From BrOpBal Where CId=? and Fyear=? For Update", of.client,
                        of.year.Text())) {
    const auto broker = balances.find(BrokerId{row.Int(std::size_t{0})});
    if (broker != balances.end() && !broker->second.recorded) {
      balances.erase(broker);
    }
  }
}

void DeleteRows(Transaction& transaction, const ClientYear& of, const Balances& balances) {
  database::BulkWriter writer(transaction, "Delete From BrOpBal Where CId=? and Fyear=? and BrId=?",
                              "iti");
  for (const auto& [broker, balance] : balances) {
    writer.Int(of.client.value).Text(of.year.Utf8()).Int(broker.value).EndRow();
  }
  writer.Finish();
}

void InsertRows(Transaction& transaction, const ClientYear& of, const Balances& balances) {
  database::BulkWriter writer(transaction, kInsert, "itiidi");
  int next = database::NextKeys(transaction, "BrOpBal", static_cast<int>(balances.size()));
  for (const auto& [broker, balance] : balances) {
    const BrokerOpening carried = CarriedOpening(broker, balance.paise);
    writer.Int(of.client.value)
        .Text(of.year.Utf8())
        .Int(next++)
        .Int(broker.value)
        .Double(carried.amount)
        .Int(static_cast<int>(*carried.side))
        .EndRow();
  }
  writer.Finish();
}

}  // namespace

BrokerOpeningBook::BrokerOpeningBook(Connection& connection, const ClientYear& of)
    : connection_(connection), of_(of) {}

std::vector<BrokerOpening> BrokerOpeningBook::List() const {
  std::vector<BrokerOpening> openings;
  for (const auto& row :
       connection_.Open("Select Id,BrId,OpBal,Dr From BrOpBal Where CId=? and Fyear=? Order By "
                        "OpBal Desc,Id",
                        of_.client, of_.year.Text())) {
    openings.push_back({.id = BrokerOpeningId{row.Int(std::size_t{0})},
                        .broker = BrokerId{row.Int(1)},
                        .amount = row.Double(2),
                        .side = row.Int(3) == 0 ? LedgerSide::kDebit : LedgerSide::kCredit});
  }
  return openings;
}

MaybeRefusal BrokerOpeningBook::Save(BrokerOpening& opening) {
  if (MaybeRefusal refusal = CheckBrokerOpening(opening)) {
    return refusal;
  }
  BrokerOpening saved;
  MaybeRefusal refusal =
      database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
        if (IsTaken(transaction, of_, opening)) {
          return Refusal{QCoreApplication::translate("BrokerMoney", "Record Already Exists!"),
                         QStringLiteral("Combo1")};
        }
        saved = opening;
        saved.id = database::ClaimKey(transaction, "BrOpBal", saved.id);
        InsertRow(transaction, of_, saved);
        return std::nullopt;
      });
  if (!refusal) {
    opening = saved;
  }
  return refusal;
}

void BrokerOpeningBook::Delete(BrokerOpeningId id) {
  database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
    transaction.Execute("Delete From BrOpBal Where Id=?", id);
    return std::nullopt;
  });
}

bool BrokerOpeningBook::HasBalancesToCarryForward() const {
  const QString year = of_.year.Previous().Text();
  return connection_
      .Open(
          "Select 1 From BrOpBal Where CId=? and Fyear=? Union All "
          "Select 1 From SPMaster Where Cid=? and Fyear=? Union All "
          "Select 1 From BrPayment Where Cid=? and Fyear=? Union All "
          "Select 1 From BrRec Where Cid=? and Fyear=? Limit 1",
          of_.client, year, of_.client, year, of_.client, year, of_.client, year)
      .Next();
}

std::size_t BrokerOpeningBook::CarryForward() {
  std::size_t written = 0;
  database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
    Balances balances = ClosingBalances(transaction, {of_.client, of_.year.Previous()});
    KeepOthers(transaction, of_, balances);
    DeleteRows(transaction, of_, balances);
    InsertRows(transaction, of_, balances);
    written = balances.size();
    return std::nullopt;
  });
  return written;
}

}  // namespace quorvane::broker_money
