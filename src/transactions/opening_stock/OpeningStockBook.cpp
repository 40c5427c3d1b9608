#include "transactions/opening_stock/OpeningStockBook.h"

#include "transactions/opening_stock/OpeningRows.h"
#include "transactions/posting/LotSheet.h"
#include "transactions/posting/Owner.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace quorvane::opening_stock {
namespace {

using database::Connection;
using database::Transaction;
using posting::LotSheet;

ledger::LotKey KeyOf(const ClientYear& of, const OpeningLot& lot) {
  return {of, lot.account, lot.scrip, lot.rate};
}

/// Deletes the old rows, inserts the new ones and moves their lots. What matters is the outcome for
/// each lot: old shares may leave it below zero when new ones come in.
MaybeRefusal Replace(Transaction& transaction, const ClientYear& of,
                     std::span<const OpeningLot> old, std::span<OpeningLot> lots,
                     const QString& field) {
  LotSheet sheet(transaction, ledger::LotTable::kStock);
  for (const OpeningLot& lot : old) {
    sheet.Take(KeyOf(of, lot), lot.quantity);
  }
  for (const OpeningLot& lot : lots) {
    sheet.Add(KeyOf(of, lot), lot.quantity);
  }
  if (MaybeRefusal refusal = sheet.CheckShortage(field)) {
    return refusal;
  }
  sheet.Write();
  DeleteRows(transaction, of, old);
  InsertRows(transaction, of, lots);
  return std::nullopt;
}

MaybeRefusal SaveIn(Transaction& transaction, const ClientYear& of, OpeningLot& lot) {
  const QString field = QStringLiteral("Combo2");
  if (MaybeRefusal refusal = posting::CheckClient(transaction, of.client, field)) {
    return refusal;
  }
  std::vector<OpeningLot> old;
  if (lot.id) {
    old = ReadRows(transaction.GetConnection(), of, Locking::kForUpdate, lot.id);
  }
  if (MaybeRefusal refusal =
          posting::CheckAccount(transaction, of.client, lot.account,
                                old.empty() ? AccountId{} : old.front().account, field)) {
    return refusal;
  }
  if (old.empty()) {
    // A row that was deleted meanwhile is written as a new one: its key may be taken.
    lot.id = {};
  }
  return Replace(transaction, of, old, {&lot, 1}, QStringLiteral("Text1_0"));
}

OpeningLot OpeningOf(const gains::RemainingLot& lot) {
  OpeningLot opening;
  opening.scrip = lot.scrip;
  opening.account = lot.account;
  opening.quantity = lot.quantity;
  opening.rate = lot.rate;
  opening.total = lot.total;
  opening.purchase_date = text::FormatDmy(lot.date);
  opening.service_tax = lot.service_tax;
  opening.brokerage = lot.brokerage;
  opening.stt = lot.stt;
  opening.fo = lot.fo;
  return opening;
}

/// Everything of a row but its id.
auto Contents(const OpeningLot& lot) {
  return std::make_tuple(lot.scrip, lot.account, lot.quantity, lot.rate, lot.total,
                         lot.purchase_date, lot.service_tax, lot.brokerage, lot.stt, lot.fo);
}

std::vector<OpeningLot> IdenticalTo(std::span<const OpeningLot> lots,
                                    std::vector<OpeningLot> rows) {
  std::set<decltype(Contents({}))> contents;
  for (const OpeningLot& lot : lots) {
    contents.insert(Contents(lot));
  }
  std::erase_if(rows, [&](const OpeningLot& row) { return !contents.contains(Contents(row)); });
  return rows;
}

}  // namespace

OpeningStockBook::OpeningStockBook(Connection& connection, const ClientYear& of)
    : connection_(connection), of_(of) {}

std::vector<OpeningLot> OpeningStockBook::List() const {
  return ReadRows(connection_, of_, Locking::kPlain);
}

MaybeRefusal OpeningStockBook::Save(OpeningLot& lot) {
  if (MaybeRefusal refusal = CheckOpening(lot, of_.year)) {
    return refusal;
  }
  OpeningLot saved;
  MaybeRefusal refusal = database::InTransaction(connection_, [&](Transaction& transaction) {
    saved = lot;
    // What is recorded is what the ledger counts.
    saved.quantity = ledger::SettleQuantity(lot.quantity);
    return SaveIn(transaction, of_, saved);
  });
  if (!refusal) {
    lot = saved;
  }
  return refusal;
}

MaybeRefusal OpeningStockBook::Delete(OpeningId id) {
  return database::InTransaction(connection_, [&](Transaction& transaction) {
    return Replace(transaction, of_, ReadRows(connection_, of_, Locking::kForUpdate, id), {},
                   QStringLiteral("VSF"));
  });
}

bool HasLotsToCarryForward(Connection& connection, const ClientYear& of) {
  return connection
      .Open("Select Id From Stock Where Cid=? and Fyear=? and Qty>0 Limit 1", of.client,
            of.year.Previous().Text())
      .Next();
}

MaybeRefusal CarryForward(Connection& connection, const ClientYear& of, Progress& progress,
                          std::size_t& carried) {
  return database::InTransaction(connection, [&](Transaction& transaction) {
    const ClientYear before{of.client, of.year.Previous()};
    ledger::LockLots(transaction, before);
    ledger::LockLots(transaction, of);
    const std::vector<gains::RemainingLot> lots =
        gains::RemainingLots(connection, before.client, before.year, progress);
    carried = lots.size();
    return CarryForward(transaction, of, lots);
  });
}

MaybeRefusal CarryForward(Transaction& transaction, const ClientYear& of,
                          std::span<const gains::RemainingLot> lots) {
  std::vector<OpeningLot> carried;
  std::transform(lots.begin(), lots.end(), std::back_inserter(carried), OpeningOf);
  const std::vector<OpeningLot> old =
      IdenticalTo(carried, ReadRows(transaction.GetConnection(), of, Locking::kForUpdate));
  return Replace(transaction, of, old, carried, QStringLiteral("VSF"));
}

}  // namespace quorvane::opening_stock
