#include "transactions/posting/LotSheet.h"

#include "core/database/BulkWriter.h"
#include "core/database/Keys.h"

#include <QCoreApplication>

#include <fmt/format.h>

namespace quorvane::posting {
namespace {

using database::BulkWriter;
using database::Transaction;

QString ScripName(Transaction& transaction, ScripId scrip) {
  auto rows = transaction.Open("Select Name From Script Where Id=?", scrip);
  return rows.Next() ? rows.Text(std::size_t{0}) : QString();
}

}  // namespace

LotSheet::LotSheet(Transaction& transaction, ledger::LotTable table)
    : transaction_(transaction), table_(table) {}

void LotSheet::Load(const Place& place) {
  if (!loaded_.insert(place).second) {
    return;
  }
  for (const auto& row : transaction_.Open(
           fmt::format("Select Id,ScriptId,Qty,Rate From {} Where Cid=? and Fyear=? and AcId=? "
                       "Order By Id For Update",
                       ledger::TableName(table_)),
           place.of.client, place.of.year.Text(), place.account)) {
    const double quantity = row.Double(2);
    Append({place,
            {LotId{row.Int(std::size_t{0})}, place.account, ScripId{row.Int(1)}, quantity,
             row.Double(3)},
            quantity,
            Kind::kStored});
  }
}

std::size_t LotSheet::Append(const Row& row) {
  const std::size_t index = rows_.size();
  rows_.push_back(row);
  by_key_.try_emplace({row.place, row.lot.scrip, row.lot.rate}, index);
  by_id_.try_emplace(row.lot.id, index);
  return index;
}

std::optional<ledger::Lot> LotSheet::Find(const Place& place, LotId lot) {
  Load(place);
  return Holds(lot, place) ? std::optional(rows_[by_id_.at(lot)].lot) : std::nullopt;
}

bool LotSheet::Holds(LotId lot, const Place& place) const {
  const auto found = by_id_.find(lot);
  return found != by_id_.end() && rows_[found->second].place == place;
}

LotId LotSheet::NewLot() {
  if (next_id_ == 0) {
    next_id_ = database::FirstFreeKey(transaction_, "Stock");
  }
  return LotId{next_id_++};
}

LotSheet::Row& LotSheet::At(const ledger::LotKey& key) {
  const Place place{key.of, key.account};
  Load(place);
  const auto found = by_key_.find({place, key.scrip, key.rate});
  if (found != by_key_.end()) {
    return rows_[found->second];
  }
  return rows_[Append({place, {NewLot(), key.account, key.scrip, 0, key.rate}, 0, Kind::kNew})];
}

LotSheet::Row& LotSheet::At(const Place& place, LotId lot, ScripId scrip) {
  Load(place);
  if (Holds(lot, place) && rows_[by_id_.at(lot)].lot.scrip == scrip) {
    return rows_[by_id_.at(lot)];
  }
  const auto [entry, fresh] = unknown_.try_emplace(lot, rows_.size());
  if (fresh) {
    rows_.push_back({place, {lot, place.account, scrip}, 0, Kind::kUnknown});
  }
  return rows_[entry->second];
}

LotId LotSheet::Add(const ledger::LotKey& key, double quantity) {
  ledger::Lot& lot = At(key).lot;
  lot.quantity = ledger::SettleQuantity(lot.quantity + quantity);
  return lot.id;
}

void LotSheet::Add(const Place& place, LotId lot, ScripId scrip, double quantity) {
  double& held = At(place, lot, scrip).lot.quantity;
  held = ledger::SettleQuantity(held + quantity);
}

MaybeRefusal LotSheet::CheckShortage(const QString& field) const {
  for (const Row& row : rows_) {
    // A lot that was wrong before may come nearer to the truth.
    if (row.lot.quantity < 0 && row.lot.quantity < row.stored) {
      return Refusal{QCoreApplication::translate(
                         "Posting",
                         "You Can't Update Record.\n\nQunatity of %1 Script Can't be Negative "
                         "Value.")
                         .arg(ScripName(transaction_, row.lot.scrip)),
                     field};
    }
  }
  return std::nullopt;
}

void LotSheet::Write() {
  BulkWriter insert(transaction_,
                    fmt::format("Insert Into {} Values(?,?,?,?,?,?,?)", ledger::TableName(table_)),
                    "itiiidd");
  BulkWriter update(transaction_,
                    fmt::format("Update {} Set Qty=? Where Id=?", ledger::TableName(table_)), "di");
  for (Row& row : rows_) {
    if (row.kind == Kind::kNew) {
      insert.Int(row.place.of.client.value)
          .Text(row.place.of.year.Utf8())
          .Int(row.lot.id.value)
          .Int(row.lot.account.value)
          .Int(row.lot.scrip.value)
          .Double(row.lot.quantity)
          .Double(row.lot.rate)
          .EndRow();
    } else if (row.kind == Kind::kStored && row.lot.quantity != row.stored) {
      update.Double(row.lot.quantity).Int(row.lot.id.value).EndRow();
    }
  }
  insert.Finish();
  update.Finish();
  // What is numbered on the scratch copy gets its number for good when it is saved.
  if (next_id_ != 0 && table_ == ledger::LotTable::kStock) {
    database::KeepKeys(transaction_, "Stock", next_id_);
  }
}

}  // namespace quorvane::posting
