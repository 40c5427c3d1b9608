#include "transactions/opening_stock/OpeningStockBook.h"

#include "core/database/Keys.h"
#include "core/ledger/Lots.h"
#include "core/ledger/Posting.h"
#include "core/records/Writing.h"
#include "core/text/Tr.h"
#include "transactions/posting/Owner.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace quorvane::opening_stock {
namespace {

using database::Connection;
using database::Transaction;
using ledger::Lots;

records::Select<OpeningLot> SelectOf(Connection& connection, const ClientYear& of) {
  records::Select<OpeningLot> select(connection);
  select.Where(&OpeningLot::client, of.client).Where(&OpeningLot::year, of.year);
  select.OrderBy(&OpeningLot::id);
  return select;
}

void DeleteRows(Transaction& transaction, const ClientYear& of, std::span<const OpeningLot> rows) {
  std::vector<OpeningId> ids(rows.size());
  std::ranges::transform(rows, ids.begin(), &OpeningLot::id);
  records::Delete<OpeningLot>(transaction)
      .Where(&OpeningLot::client, of.client)
      .Where(&OpeningLot::year, of.year)
      .In(&OpeningLot::id, ids)
      .Run();
}

/// Under ids of their own, or under new ones.
void InsertRows(Transaction& transaction, const ClientYear& of, std::span<OpeningLot> rows) {
  const auto fresh = std::ranges::count_if(rows, [](const OpeningLot& row) { return !row.id; });
  int next = fresh == 0 ? 0 : database::NextKeys(transaction, "StkOpBal", static_cast<int>(fresh));
  for (OpeningLot& row : rows) {
    row.client = of.client;
    row.year = of.year;
    if (!row.id) {
      row.id = OpeningId{next++};
    }
  }
  records::Insert<OpeningLot>(transaction, rows);
}

std::vector<ledger::Place> PlacesOf(const ClientYear& of, std::span<const OpeningLot> rows) {
  std::vector<ledger::Place> places;
  for (const OpeningLot& row : rows) {
    places.push_back({of, row.account});
  }
  return places;
}

/// Inserts the new rows in place of old ones, which are deleted already, and moves their lots. What
/// matters is the outcome for each lot: old shares may leave it below zero when new ones come in.
MaybeRefusal Replace(Transaction& transaction, const ClientYear& of,
                     std::span<const OpeningLot> old, std::span<OpeningLot> rows, Field field) {
  std::vector<ledger::Place> places = PlacesOf(of, old);
  const std::vector<ledger::Place> more = PlacesOf(of, rows);
  places.insert(places.end(), more.begin(), more.end());
  Lots lots;
  ledger::LockAndLoad(transaction, lots, places);
  InsertRows(transaction, of, rows);
  for (const OpeningLot& row : rows) {
    ledger::Post(lots, row);
  }
  for (const OpeningLot& row : old) {
    ledger::TakeBack(lots, row);
  }
  if (MaybeRefusal refusal = posting::RefuseShortage(transaction, lots, field)) {
    return refusal;
  }
  lots.Write(transaction);
  return std::nullopt;
}

Result<OpeningId> SaveIn(Transaction& transaction, const ClientYear& of, OpeningLot lot) {
  if (const MaybeRefusal refusal = posting::CheckClient(transaction, of.client, Field::kAccount)) {
    return *refusal;
  }
  std::vector<OpeningLot> old;
  if (lot.id) {
    old =
        SelectOf(transaction.GetConnection(), of).Where(&OpeningLot::id, lot.id).ForUpdate().All();
  }
  if (const MaybeRefusal refusal =
          posting::CheckAccount(transaction, of.client, lot.account,
                                old.empty() ? AccountId{} : old.front().account, Field::kAccount)) {
    return *refusal;
  }
  if (old.empty() && lot.id) {
    // A row that was deleted meanwhile is written as a new one.
    transaction.Changes().Missed("StkOpBal", lot.id.value);
    lot.id = {};
  }
  DeleteRows(transaction, of, old);
  if (const MaybeRefusal refusal = Replace(transaction, of, old, {&lot, 1}, Field::kQuantity)) {
    return *refusal;
  }
  return lot.id;
}

OpeningLot OpeningOf(const gains::RemainingLot& lot) {
  OpeningLot opening;
  opening.scrip = lot.scrip;
  opening.account = lot.account;
  opening.quantity = Shares(lot.quantity);
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
  return SelectOf(connection_, of_).All();
}

Result<OpeningId> OpeningStockBook::Save(const OpeningLot& lot) {
  if (const MaybeRefusal refusal = CheckOpening(lot, of_.year)) {
    return *refusal;
  }
  return database::InTransaction(
      connection_, [&](Transaction& transaction) { return SaveIn(transaction, of_, lot); });
}

MaybeRefusal OpeningStockBook::Delete(OpeningId id) {
  return database::InTransaction(connection_, [&](Transaction& transaction) {
    const std::vector<OpeningLot> old =
        SelectOf(connection_, of_).Where(&OpeningLot::id, id).ForUpdate().All();
    DeleteRows(transaction, of_, old);
    return Replace(transaction, of_, old, {}, Field::kRecord);
  });
}

bool HasLotsToCarryForward(Connection& connection, const ClientYear& of) {
  return connection
      .Open("Select Id From Stock Where Cid=? and Fyear=? and Qty>0 Limit 1", of.client,
            of.year.Previous().Text())
      .Next();
}

Result<std::size_t> CarryForward(Connection& connection, const ClientYear& of, Progress& progress) {
  return database::InTransaction(connection, [&](Transaction& transaction) -> Result<std::size_t> {
    const ClientYear before{of.client, of.year.Previous()};
    transaction.Changes().Summarise(changes::Kind::kCarriedForward,
                                    Tr("OpeningStock", "Opening stock"),
                                    {.client = of.client.value, .year = of.year.Utf8()});
    ledger::LockLots(transaction, before);
    ledger::LockLots(transaction, of);
    const std::vector<gains::RemainingLot> lots =
        gains::RemainingLots(connection, before.client, before.year, progress);
    if (const MaybeRefusal refusal = CarryForward(transaction, of, lots)) {
      return *refusal;
    }
    return lots.size();
  });
}

MaybeRefusal CarryForward(Transaction& transaction, const ClientYear& of,
                          std::span<const gains::RemainingLot> lots) {
  std::vector<OpeningLot> carried;
  std::transform(lots.begin(), lots.end(), std::back_inserter(carried), OpeningOf);
  const std::vector<OpeningLot> old =
      IdenticalTo(carried, SelectOf(transaction.GetConnection(), of).ForUpdate().All());
  DeleteRows(transaction, of, old);
  return Replace(transaction, of, old, carried, Field::kRecord);
}

}  // namespace quorvane::opening_stock
