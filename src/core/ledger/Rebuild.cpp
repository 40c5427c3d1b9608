#include "core/ledger/Rebuild.h"

#include "core/database/BulkWriter.h"
#include "core/text/Tr.h"

#include <span>

namespace quorvane::ledger {
namespace {

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

void Note(Transaction& transaction, const std::optional<ClientYear>& of, std::size_t changed) {
  changes::Owner owner;
  if (of) {
    owner.client = of->client.value;
    owner.year = of->year.Utf8();
  }
  transaction.Changes().Summarise(changes::Kind::kRebuilt, Tr("Rebuild", "Holdings"), owner);
  transaction.Changes().Of("Stock").added_count = static_cast<std::int64_t>(changed);
}

}  // namespace

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
    if (changed > 0) {
      Note(transaction, of, changed);
    }
  });
  return changed;
}

}  // namespace quorvane::ledger
