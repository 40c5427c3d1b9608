#include "core/ledger/Rebuild.h"

#include "core/database/BulkWriter.h"
#include "core/ledger/Lots.h"
#include "core/records/Movements.h"

#include <set>
#include <span>

namespace quorvane::ledger {
namespace {

using records::Movement;
using records::MovementKind;

/// The lots of a scope and what the documents add up to for each.
class Recount {
 public:
  Recount(Connection& connection, const std::optional<ClientYear>& of, Progress& progress)
      : connection_(connection), of_(of), progress_(progress) {}

  StockCheck Run() {
    const LotScope scope = of_ ? LotScope::Of(*of_) : LotScope{};
    for (const records::Lot& lot : ReadLots(connection_, scope)) {
      lots_.Load(lot);
    }
    lots_.Empty();
    records::MovementScope movements;
    movements.charges = false;
    movements.every_transfer = true;
    if (of_) {
      movements.client = of_->client;
      movements.year = of_->year;
    }
    records::ReadMovements(connection_, movements, check_.faults, progress_,
                           [this](const Movement& movement) { Count(movement); });
    AddChanges();
    AddSalesWithoutLot();
    return std::move(check_);
  }

 private:
  using PlaceOfScrip = std::pair<Place, ScripId>;

  static LotKey KeyOf(const Movement& m) {
    return {{m.client, m.year}, m.account, m.scrip, m.rate};
  }

  void Count(const Movement& m) {
    switch (m.kind) {
      case MovementKind::kOpening:
      case MovementKind::kActionIn:
      case MovementKind::kPurchase:
        return AddIn(m);
      case MovementKind::kActionOut:
        return TakeByAction(m);
      case MovementKind::kSale:
        return TakeSale(m);
      case MovementKind::kTransferIn:
      case MovementKind::kTransferOut:
        return Move(m);
    }
  }

  /// A purchase usually names the lot that it belongs to, which saves the search for it.
  void AddIn(const Movement& m) {
    const LotKey key = KeyOf(m);
    const records::Lot* lot = m.lot ? lots_.Find(m.lot) : nullptr;
    if (lot == nullptr || ledger::KeyOf(*lot) != key || lots_.IsDuplicate(m.lot)) {
      lot = lots_.Find(key);
    }
    if (lot != nullptr) {
      lots_.AdjustLotQty(Posting::kAdd, lot->id, m.quantity);
    }
  }

  void TakeSale(const Movement& m) {
    const Place place{{m.client, m.year}, m.account};
    if (lots_.Find(place, m.lot, m.scrip) != nullptr) {
      lots_.AdjustLotQty(Posting::kSubtract, m.lot, m.quantity);
    } else {
      without_lot_.push_back({{place, m.scrip}, m.document});
    }
  }

  void TakeByAction(const Movement& m) {
    if (const records::Lot* lot = lots_.Find(KeyOf(m))) {
      lots_.AdjustLotQty(Posting::kSubtract, lot->id, m.quantity);
    }
  }

  void AddSalesWithoutLot() {
    std::set<PlaceOfScrip> held;
    for (const Lots::Entry& entry : lots_.Entries()) {
      if (without_lot_.empty()) {
        break;
      }
      held.insert({{entry.lot.Of(), entry.lot.account}, entry.lot.scrip});
    }
    for (const auto& [place, bill] : without_lot_) {
      if (held.contains(place)) {
        check_.faults.push_back(
            {records::FaultKind::kSaleWithoutLot, place.first.of.client, bill, {}, {}});
      }
    }
  }

  /// A transfer counts for its accounts, whoever is recorded as their client.
  void Move(const Movement& m) {
    const Shares change = m.kind == MovementKind::kTransferIn ? m.quantity : -m.quantity;
    lots_.ForEachClientAt(KeyOf(m), [&](records::Lot& lot) { lot.quantity += change; });
  }

  void AddChanges() {
    for (const Lots::Entry& entry : lots_.Entries()) {
      const records::Lot* kept = entry.duplicate ? lots_.Find(ledger::KeyOf(entry.lot)) : nullptr;
      if (kept != nullptr && kept->id == entry.lot.id) {
        // Which of two rows of one number is deleted is open; the one that stays gets its quantity.
        check_.changes.push_back({*kept, kept->quantity, false});
      }
      if (entry.duplicate || entry.lot.quantity != entry.stored) {
        records::Lot stored = entry.lot;
        stored.quantity = entry.stored;
        check_.changes.push_back({stored, entry.lot.quantity, entry.duplicate});
      }
    }
  }

  Connection& connection_;
  std::optional<ClientYear> of_;
  Progress& progress_;
  Lots lots_;
  std::vector<std::pair<PlaceOfScrip, int>> without_lot_;  ///< with their bills
  StockCheck check_;
};

void DropDuplicates(Transaction& transaction, std::span<const LotChange> changes) {
  database::BulkWriter drop(transaction, "Delete From Stock Where Id=? Limit 1", "i");
  for (const LotChange& change : changes) {
    if (change.duplicate) {
      drop.Int(change.lot.id.value).EndRow();
    }
  }
  drop.Finish();
}

void SetOneByOne(Transaction& transaction, std::span<const LotChange> changes) {
  database::BulkWriter set(transaction, "Update Stock Set Qty=? Where Id=?", "di");
  for (const LotChange& change : changes) {
    if (!change.duplicate) {
      set.Double(change.quantity.Number()).Int(change.lot.id.value).EndRow();
    }
  }
  set.Finish();
}

/// False, and nothing done, on a server that does not let this user make temporary tables.
bool MakeChangesTable(Transaction& transaction) {
  constexpr int kNotGranted = 1044;
  try {
    transaction.Execute("Drop Temporary Table If Exists LotChanges");
    transaction.Execute(
        "Create Temporary Table LotChanges(Id int(11) Primary Key, Qty Double Not Null)");
  } catch (const database::DatabaseError& error) {
    if (error.Native() != kNotGranted) {
      throw;
    }
    return false;
  }
  return true;
}

/// Sends the quantities in bulk and sets them in one pass over the lots, which takes the server
/// half of the time of a statement a lot. Of two quantities for one id the last one counts, as one
/// by one.
bool SetAtOnce(Transaction& transaction, std::span<const LotChange> changes) {
  if (!MakeChangesTable(transaction)) {
    return false;
  }
  database::BulkWriter changed(transaction, "Replace Into LotChanges Values(?,?)", "id");
  for (const LotChange& change : changes) {
    if (!change.duplicate) {
      changed.Int(change.lot.id.value).Double(change.quantity.Number()).EndRow();
    }
  }
  changed.Finish();
  transaction.Execute("Update Stock S Join LotChanges C On C.Id=S.Id Set S.Qty=C.Qty");
  transaction.Execute("Drop Temporary Table LotChanges");
  return true;
}

}  // namespace

StockCheck CheckStock(Connection& connection, const std::optional<ClientYear>& of,
                      Progress& progress) {
  return Recount(connection, of, progress).Run();
}

std::size_t RebuildStock(Transaction& transaction, const std::optional<ClientYear>& of,
                         Progress& progress) {
  // In the order in which a saved record takes them, so that the two do not wait for each other.
  transaction.Execute("Delete From Stock_Temp");
  LockLots(transaction, of);
  const std::vector<LotChange> changes =
      CheckStock(transaction.GetConnection(), of, progress).changes;
  DropDuplicates(transaction, changes);
  constexpr std::size_t kMany = 2000;
  if (changes.size() < kMany || !SetAtOnce(transaction, changes)) {
    SetOneByOne(transaction, changes);
  }
  return changes.size();
}

std::size_t RebuildStock(Connection& connection, const std::optional<ClientYear>& of,
                         Progress& progress) {
  std::size_t changed = 0;
  database::InTransaction(connection, [&](Transaction& transaction) {
    changed = RebuildStock(transaction, of, progress);
  });
  return changed;
}

}  // namespace quorvane::ledger
