#include "transactions/transfers/TransferBook.h"

#include "core/database/Keys.h"
#include "core/ledger/Posting.h"
#include "core/records/Writing.h"
#include "transactions/posting/Owner.h"

#include <algorithm>

namespace quorvane::transfers {
namespace {

using database::Connection;
using database::Transaction;
using ledger::Lots;
using records::TransTo;

records::Select<Transfer> SelectOf(Connection& connection, const ClientYear& of) {
  records::Select<Transfer> select(connection);
  select.Where(&Transfer::client, of.client).Where(&Transfer::year, of.year);
  return select;
}

std::optional<Transfer> ReadForUpdate(Connection& connection, const ClientYear& of, TransferId id) {
  return SelectOf(connection, of).Where(&Transfer::id, id).ForUpdate().First();
}

ClientId OwnerOf(Transaction& transaction, AccountId account) {
  auto rows =
      transaction.Open("Select CId From ClientActDet Where id=? Lock In Share Mode", account);
  return rows.Next() ? ClientId{rows.Int(0)} : ClientId{};
}

void DeleteRow(Transaction& transaction, const Transfer& transfer) {
  records::Delete<Transfer>(transaction)
      .Where(&Transfer::client, transfer.client)
      .Where(&Transfer::year, transfer.year)
      .Where(&Transfer::id, transfer.id)
      .Run();
}

/// Fills in what follows from the lot and checks its balance, an old transfer taken back before.
MaybeRefusal TakeFromLot(Lots& lots, Transfer& transfer) {
  const records::Lot* lot = lots.Find(transfer.lot);
  const ledger::Place source = ledger::SourceOf(transfer);
  if (lot == nullptr || lot->Of() != source.of || lot->account != source.account) {
    return NoLot();
  }
  transfer.scrip = lot->scrip;
  transfer.rate = lot->rate;
  if (MaybeRefusal refusal = CheckBalance(transfer.quantity, std::max(Shares(), lot->quantity))) {
    return refusal;
  }
  ledger::Post(lots, transfer);
  return std::nullopt;
}

/// What lies between an old transfer and the new one: its lots first, so that the balance of the
/// new one counts what the old one gives back.
MaybeRefusal Move(Transaction& transaction, const std::optional<Transfer>& old,
                  Transfer& transfer) {
  Lots lots;
  std::vector<ledger::Place> places{ledger::SourceOf(transfer), ledger::DestinationOf(transfer)};
  if (old) {
    places.insert(places.end(), {ledger::SourceOf(*old), ledger::DestinationOf(*old)});
  }
  ledger::LockAndLoad(transaction, lots, places);
  if (old) {
    ledger::TakeBack(lots, *old);
  }
  if (MaybeRefusal refusal = TakeFromLot(lots, transfer)) {
    return refusal;
  }
  if (MaybeRefusal refusal = posting::RefuseShortage(transaction, lots, Field::kRecord)) {
    return refusal;
  }
  lots.Write(transaction);
  return std::nullopt;
}

Result<Transfer> SaveIn(Transaction& transaction, const ClientYear& of, Transfer transfer) {
  if (const MaybeRefusal refusal = posting::CheckClient(transaction, of.client, Field::kAccount)) {
    return *refusal;
  }
  ledger::ClearScratch(transaction, of);
  const std::optional<Transfer> old =
      transfer.id ? ReadForUpdate(transaction.GetConnection(), of, transfer.id) : std::nullopt;
  if (const MaybeRefusal refusal = posting::CheckAccount(
          transaction, of.client, transfer.from, old ? old->from : AccountId{}, Field::kAccount)) {
    return *refusal;
  }
  transfer.client = of.client;
  transfer.year = of.year;
  transfer.to_client = OwnerOf(transaction, transfer.to);
  if (!transfer.to_client) {
    return NoDestination();
  }
  transfer.kind = transfer.to_client == of.client ? TransTo::kSameClient : TransTo::kOtherClient;
  if (const MaybeRefusal refusal = Move(transaction, old, transfer)) {
    return *refusal;
  }
  if (old) {
    DeleteRow(transaction, *old);
  } else {
    // A transfer that was deleted meanwhile is written as a new one.
    if (transfer.id) {
      transaction.Changes().Missed("ScrTransfer", transfer.id.value);
    }
    transfer.id = TransferId{database::NextKey(transaction, "ScrTransfer")};
  }
  records::Insert(transaction, transfer);
  return transfer;
}

MaybeRefusal DeleteIn(Transaction& transaction, const Transfer& transfer) {
  Lots lots;
  ledger::LockAndLoad(transaction, lots,
                      std::vector{ledger::SourceOf(transfer), ledger::DestinationOf(transfer)});
  ledger::TakeBack(lots, transfer);
  if (MaybeRefusal refusal = posting::RefuseShortage(transaction, lots, Field::kRecord)) {
    return refusal;
  }
  lots.Write(transaction);
  DeleteRow(transaction, transfer);
  return std::nullopt;
}

}  // namespace

TransferBook::TransferBook(Connection& connection, const ClientYear& of)
    : connection_(connection), of_(of) {}

std::vector<Transfer> TransferBook::List() const {
  return SelectOf(connection_, of_).OrderByDay(&Transfer::date).OrderBy(&Transfer::id).All();
}

Result<Transfer> TransferBook::Save(const Transfer& transfer) {
  if (const MaybeRefusal refusal = CheckTransfer(transfer, of_.year)) {
    return *refusal;
  }
  return database::InTransaction(
      connection_, [&](Transaction& transaction) { return SaveIn(transaction, of_, transfer); });
}

MaybeRefusal TransferBook::Delete(TransferId id) {
  return database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
    const std::optional<Transfer> old = ReadForUpdate(connection_, of_, id);
    return old ? DeleteIn(transaction, *old) : std::nullopt;
  });
}

ledger::Lots TransferBook::Begin(const std::optional<Transfer>& changed) {
  Lots lots;
  for (const records::Lot& lot : ledger::ReadLots(connection_, ledger::LotScope::Of(of_))) {
    lots.Load(lot);
  }
  if (changed) {
    ledger::TakeBack(lots, *changed);
  }
  database::InTransaction(
      connection_, [&](Transaction& transaction) { ledger::WriteScratch(transaction, of_, lots); });
  return lots;
}

void TransferBook::End() {
  database::InTransaction(
      connection_, [&](Transaction& transaction) { ledger::ClearScratch(transaction, of_); });
}

}  // namespace quorvane::transfers
