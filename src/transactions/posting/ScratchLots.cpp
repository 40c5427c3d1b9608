#include "transactions/posting/ScratchLots.h"

#include <algorithm>

namespace quorvane::posting {
namespace {

using database::Transaction;
using ledger::LotTable;

void CopyFromLedger(Transaction& transaction, const ClientYear& of,
                    std::optional<AccountId> account) {
  if (account) {
    transaction.Execute(
        "Insert Into Stock_Temp Select * From Stock Where Cid=? and Fyear=? and AcId=?", of.client,
        of.year.Text(), *account);
  } else {
    transaction.Execute("Insert Into Stock_Temp Select * From Stock Where Cid=? and Fyear=?",
                        of.client, of.year.Text());
  }
}

MaybeRefusal ChangeIn(Transaction& transaction, const ScratchLots::Post& post) {
  LotSheet sheet(transaction, LotTable::kStockTemp);
  MaybeRefusal refusal = post(sheet);
  if (!refusal) {
    sheet.Write();
  }
  return refusal;
}

}  // namespace

ScratchLots::ScratchLots(database::Connection& connection, const ClientYear& of)
    : connection_(connection), of_(of) {}

MaybeRefusal ScratchLots::Begin(std::optional<AccountId> account, const Post& post) {
  return database::InTransaction(connection_, [&](Transaction& transaction) {
    EmptyScratch(transaction, of_);
    CopyFromLedger(transaction, of_, account);
    return post ? ChangeIn(transaction, post) : MaybeRefusal();
  });
}

std::vector<ledger::Lot> ScratchLots::Lots(AccountId account) const {
  return LotsByQuantity(connection_, of_, account, LotTable::kStockTemp);
}

std::vector<ledger::Lot> LotsByQuantity(database::Connection& connection, const ClientYear& of,
                                        AccountId account, LotTable table) {
  std::vector<ledger::Lot> lots = ledger::ReadLots(connection, of, account, table);
  std::stable_sort(lots.begin(), lots.end(), [](const ledger::Lot& a, const ledger::Lot& b) {
    return a.quantity < b.quantity;
  });
  return lots;
}

MaybeRefusal ScratchLots::Change(const Post& post) {
  return database::InTransaction(
      connection_, [&](Transaction& transaction) { return ChangeIn(transaction, post); });
}

void ScratchLots::Clear() {
  database::InTransaction(connection_, [&](Transaction& transaction) {
    EmptyScratch(transaction, of_);
    return MaybeRefusal();
  });
}

void EmptyScratch(Transaction& transaction, const ClientYear& of) {
  transaction.Execute("Delete From Stock_Temp Where Cid=? and Fyear=?", of.client, of.year.Text());
}

}  // namespace quorvane::posting
