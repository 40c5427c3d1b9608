#include "transactions/transfers/TransferBook.h"

#include "core/database/DateSql.h"
#include "core/database/Keys.h"
#include "transactions/posting/LotSheet.h"

#include <fmt/format.h>

#include <algorithm>

namespace quorvane::transfers {
namespace {

using database::Connection;
using database::Recordset;
using database::Transaction;
using posting::LotSheet;
using posting::Place;

constexpr std::string_view kSelect =
    "Select ID,TDate,FrmAcId,ToAcId,ToClientID,StkId,ScrId,PRate,Qty From ScrTransfer Where Cid=? "
    "and Fyear=?";

Transfer TransferOf(const Recordset& row) {
  Transfer transfer;
  transfer.id = TransferId{row.Int(std::size_t{0})};
  transfer.date = row.Text(1);
  transfer.from = AccountId{row.Int(2)};
  transfer.to = AccountId{row.Int(3)};
  transfer.to_client = ClientId{row.Int(4)};
  transfer.lot = LotId{row.Int(5)};
  transfer.scrip = ScripId{row.Int(6)};
  transfer.rate = row.Double(7);
  transfer.quantity = row.Double(8);
  return transfer;
}

std::optional<Transfer> Read(Connection& connection, const ClientYear& of, TransferId id,
                             std::string_view suffix = "") {
  auto rows =
      connection.Open(fmt::format("{} and ID=?{}", kSelect, suffix), of.client, of.year.Text(), id);
  return rows.Next() ? std::optional(TransferOf(rows)) : std::nullopt;
}

std::optional<Transfer> ReadForUpdate(Connection& connection, const ClientYear& of, TransferId id) {
  return Read(connection, of, id, " For Update");
}

Place Source(const ClientYear& of, const Transfer& transfer) {
  return {of, transfer.from};
}

Place Destination(const ClientYear& of, const Transfer& transfer) {
  return {{transfer.to_client, of.year}, transfer.to};
}

void LoadInOrder(LotSheet& sheet, std::vector<Place> places) {
  std::sort(places.begin(), places.end());
  for (const Place& place : places) {
    sheet.Load(place);
  }
}

ledger::LotKey KeyAt(const Place& place, const Transfer& transfer) {
  return {place.of, place.account, transfer.scrip, transfer.rate};
}

void Move(LotSheet& sheet, const ClientYear& of, const Transfer& transfer, double quantity) {
  sheet.Take(KeyAt(Source(of, transfer), transfer), quantity);
  sheet.Add(KeyAt(Destination(of, transfer), transfer), quantity);
}

void Reverse(LotSheet& sheet, const ClientYear& of, const Transfer& transfer) {
  Move(sheet, of, transfer, -transfer.quantity);
}

/// Fills in what follows from the lot and checks its balance, an old transfer taken back before.
MaybeRefusal TakeFromLot(LotSheet& sheet, const ClientYear& of, Transfer& transfer) {
  const auto lot = sheet.Find(Source(of, transfer), transfer.lot);
  if (!lot) {
    return NoLot();
  }
  transfer.scrip = lot->scrip;
  transfer.rate = lot->rate;
  if (MaybeRefusal refusal = CheckBalance(transfer.quantity, std::max(0.0, lot->quantity))) {
    return refusal;
  }
  Move(sheet, of, transfer, transfer.quantity);
  return sheet.CheckShortage(QStringLiteral("VSF"));
}

ClientId OwnerOf(Transaction& transaction, AccountId account) {
  auto rows = transaction.Open("Select CId From ClientActDet Where id=?", account);
  return rows.Next() ? ClientId{rows.Int(std::size_t{0})} : ClientId{};
}

void DeleteRow(Transaction& transaction, const ClientYear& of, TransferId id) {
  transaction.Execute("Delete From ScrTransfer Where ID=? and Cid=? and Fyear=?", id, of.client,
                      of.year.Text());
}

void InsertRow(Transaction& transaction, const ClientYear& of, const Transfer& transfer) {
  constexpr int kSameClient = 0;
  constexpr int kOtherClient = 1;
  transaction.Execute(
      "Insert Into ScrTransfer(Cid,Fyear,ID,TDate,FrmAcId,TransTo,ToAcId,ToClientID,StkId,ScrId,"
      "PRate,Qty) Values(?,?,?,?,?,?,?,?,?,?,?,?)",
      of.client, of.year.Text(), transfer.id, transfer.date, transfer.from,
      transfer.to_client == of.client ? kSameClient : kOtherClient, transfer.to, transfer.to_client,
      transfer.lot, transfer.scrip, transfer.rate, transfer.quantity);
}

MaybeRefusal Post(Transaction& transaction, const ClientYear& of,
                  const std::optional<Transfer>& old, Transfer& transfer) {
  LotSheet sheet(transaction, ledger::LotTable::kStock);
  std::vector<Place> places{Source(of, transfer), Destination(of, transfer)};
  if (old) {
    places.insert(places.end(), {Source(of, *old), Destination(of, *old)});
  }
  LoadInOrder(sheet, std::move(places));
  if (old) {
    Reverse(sheet, of, *old);
  }
  MaybeRefusal refusal = TakeFromLot(sheet, of, transfer);
  if (!refusal) {
    sheet.Write();
  }
  return refusal;
}

MaybeRefusal SaveIn(Transaction& transaction, const ClientYear& of, Transfer& transfer) {
  posting::EmptyScratch(transaction, of);
  const std::optional<Transfer> old =
      transfer.id ? ReadForUpdate(transaction.GetConnection(), of, transfer.id) : std::nullopt;
  transfer.to_client = OwnerOf(transaction, transfer.to);
  if (!transfer.to_client) {
    return NoDestination();
  }
  if (MaybeRefusal refusal = Post(transaction, of, old, transfer)) {
    return refusal;
  }
  if (old) {
    DeleteRow(transaction, of, transfer.id);
  } else {
    // A transfer that was deleted meanwhile is written as a new one: its key may be taken.
    transfer.id = TransferId{database::NextKey(transaction, "ScrTransfer")};
  }
  InsertRow(transaction, of, transfer);
  return std::nullopt;
}

MaybeRefusal DeleteIn(Transaction& transaction, const ClientYear& of, const Transfer& transfer) {
  LotSheet sheet(transaction, ledger::LotTable::kStock);
  LoadInOrder(sheet, {Source(of, transfer), Destination(of, transfer)});
  Reverse(sheet, of, transfer);
  if (MaybeRefusal refusal = sheet.CheckShortage(QStringLiteral("VSF"))) {
    return refusal;
  }
  sheet.Write();
  DeleteRow(transaction, of, transfer.id);
  return std::nullopt;
}

}  // namespace

TransferBook::TransferBook(Connection& connection, const ClientYear& of)
    : connection_(connection), of_(of) {}

std::vector<Transfer> TransferBook::List() const {
  std::vector<Transfer> transfers;
  for (const auto& row :
       connection_.Open(fmt::format("{} Order By {},ID", kSelect, database::DateOf("TDate")),
                        of_.client, of_.year.Text())) {
    transfers.push_back(TransferOf(row));
  }
  return transfers;
}

std::optional<Transfer> TransferBook::Load(TransferId id) const {
  return Read(connection_, of_, id);
}

MaybeRefusal TransferBook::Save(Transfer& transfer) {
  if (MaybeRefusal refusal = CheckTransfer(transfer, of_.year)) {
    return refusal;
  }
  Transfer saved;
  MaybeRefusal refusal = database::InTransaction(connection_, [&](Transaction& transaction) {
    saved = transfer;
    // What is recorded is what the ledger counts.
    saved.quantity = ledger::SettleQuantity(transfer.quantity);
    return SaveIn(transaction, of_, saved);
  });
  if (!refusal) {
    transfer = saved;
  }
  return refusal;
}

MaybeRefusal TransferBook::Delete(TransferId id) {
  return database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
    const std::optional<Transfer> old = ReadForUpdate(connection_, of_, id);
    return old ? DeleteIn(transaction, of_, *old) : std::nullopt;
  });
}

void TransferBook::ReverseOn(posting::ScratchLots& scratch, const Transfer& transfer) const {
  scratch.Change([&](LotSheet& sheet) {
    const Place source = Source(of_, transfer);
    sheet.Add(KeyAt(source, transfer), transfer.quantity);
    // Another client's lots are not on the scratch table.
    if (transfer.to_client == of_.client) {
      sheet.Take(KeyAt(Destination(of_, transfer), transfer), transfer.quantity);
    }
    return MaybeRefusal();
  });
}

}  // namespace quorvane::transfers
