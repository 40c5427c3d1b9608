#include "core/ledger/Rebuild.h"

#include "core/IdMap.h"
#include "core/database/BulkWriter.h"
#include "core/ledger/YearCache.h"

#include <bit>
#include <cstdint>
#include <span>
#include <string>
#include <unordered_map>

namespace quorvane::ledger {
namespace {

using database::Recordset;
using database::Value;

constexpr int kSteps = 5;

/// A lot's key without its client: transfers are found without regard to the client.
struct PlaceKey {
  int year = 0;
  int account = 0;
  int scrip = 0;
  double rate = 0;

  bool operator==(const PlaceKey&) const = default;
};

struct PlaceKeyHash {
  std::size_t operator()(const PlaceKey& key) const noexcept {
    // -0.0 and 0.0 are one rate.
    const auto rate = std::bit_cast<std::uint64_t>(key.rate == 0 ? 0.0 : key.rate);
    std::uint64_t hash = rate ^ (static_cast<std::uint64_t>(key.scrip) * 0x9E3779B97F4A7C15ULL);
    hash ^= (static_cast<std::uint64_t>(key.account) << 20) ^
            (static_cast<std::uint64_t>(key.year) << 52);
    hash *= 0xD6E8FEB86659FD93ULL;
    return hash ^ (hash >> 32);
  }
};

struct LotState {
  ClientYear of;
  Lot lot;
  double computed = 0;
  bool duplicate = false;
  std::int64_t next_at_place = -1;  ///< another client's lot of the same place key
};

/// The lots of a scope and what the documents add up to for each.
class Recount {
 public:
  Recount(Connection& connection, const std::optional<ClientYear>& of, Progress& progress)
      : connection_(connection), of_(of), progress_(progress) {}

  std::vector<LotChange> Run() {
    progress_.Begin(QStringLiteral("Holdings"), kSteps);
    ReadAllLots();
    Done();
    AddOpenings();
    Done();
    ReadBillAccounts();
    Done();
    AddBillLines();
    Done();
    AddTransfers();
    Done();
    return Differences();
  }

 private:
  void Done() {
    progress_.Step(++steps_);
    progress_.ThrowIfCancelled();
  }

  Recordset OpenScoped(std::string sql, std::string_view tail = "") {
    std::vector<Value> values;
    if (of_) {
      sql += " Where Cid=? and Fyear=?";
      values = {of_->client, of_->year.Text()};
    }
    return connection_.OpenValues(sql + std::string(tail), values);
  }

  void ReadAllLots() {
    for (const auto& row :
         OpenScoped("Select Cid,Fyear,Id,AcId,ScriptId,Qty,Rate From Stock", " Order By Id")) {
      lots_.push_back({{ClientId{row.Int(std::size_t{0})}, years_.Read(row.Utf8(1))},
                       {LotId{row.Int(2)}, AccountId{row.Int(3)}, ScripId{row.Int(4)},
                        row.Double(5), row.Double(6)}});
    }
    by_place_.reserve(lots_.size());
    for (std::size_t index = 0; index < lots_.size(); ++index) {
      Place(index);
      by_id_.Put(lots_[index].lot.id.value, static_cast<std::uint32_t>(index));
    }
    by_id_.Seal();
  }

  void Place(std::size_t index) {
    LotState& state = lots_[index];
    const PlaceKey key = KeyOf(state);
    const auto [entry, fresh] = by_place_.try_emplace(key, static_cast<std::int64_t>(index));
    if (fresh) {
      return;
    }
    state.duplicate = Find(state.of, key) != nullptr;
    if (!state.duplicate) {
      state.next_at_place = entry->second;
      entry->second = static_cast<std::int64_t>(index);
    }
  }

  static PlaceKey KeyOf(const LotState& state) {
    return {state.of.year.FirstCalendarYear(), state.lot.account.value, state.lot.scrip.value,
            state.lot.rate};
  }

  std::int64_t FirstAt(const PlaceKey& key) const {
    const auto found = by_place_.find(key);
    return found == by_place_.end() ? -1 : found->second;
  }

  LotState* Find(const ClientYear& of, const PlaceKey& key) {
    for (std::int64_t i = FirstAt(key); i >= 0;
         i = lots_[static_cast<std::size_t>(i)].next_at_place) {
      LotState& state = lots_[static_cast<std::size_t>(i)];
      if (state.of.client == of.client) {
        return &state;
      }
    }
    return nullptr;
  }

  void AddIn(const ClientYear& of, const PlaceKey& key, double quantity) {
    if (LotState* lot = Find(of, key)) {
      lot->computed += quantity;
    }
  }

  /// A purchase usually names the lot that it belongs to, which saves the search for it.
  void AddPurchase(const ClientYear& of, LotId named, const PlaceKey& key, double quantity) {
    LotState* lot = FindById(named);
    if (lot != nullptr && !lot->duplicate && lot->of == of && KeyOf(*lot) == key) {
      lot->computed += quantity;
    } else {
      AddIn(of, key, quantity);
    }
  }

  LotState* FindById(LotId id) {
    const std::uint32_t* index = by_id_.Find(id.value);
    return index == nullptr ? nullptr : &lots_[*index];
  }

  void AddOpenings() {
    for (const auto& row : OpenScoped("Select CId,Fyear,AcId,ScriptId,Rate,Qty From StkOpBal")) {
      const ClientYear of{ClientId{row.Int(std::size_t{0})}, years_.Read(row.Utf8(1))};
      AddIn(of, {of.year.FirstCalendarYear(), row.Int(2), row.Int(3), row.Double(4)},
            row.Double(5));
    }
  }

  void ReadBillAccounts() {
    for (const auto& row : OpenScoped("Select ID,AcId From SPMaster")) {
      accounts_.Put(row.Int(std::size_t{0}), row.Int(1));
    }
    accounts_.Seal();
  }

  void AddBillLines() {
    for (const auto& row :
         OpenScoped("Select Cid,Fyear,SID,SP,StkId,ScriptId,Qty,Rate From SPTrans")) {
      const int* account = accounts_.Find(row.Int(2));
      if (account == nullptr) {
        continue;
      }
      const ClientYear of{ClientId{row.Int(std::size_t{0})}, years_.Read(row.Utf8(1))};
      constexpr int kPurchase = 1;
      if (row.Int(3) == kPurchase) {
        AddPurchase(of, LotId{row.Int(4)},
                    {of.year.FirstCalendarYear(), *account, row.Int(5), row.Double(7)},
                    row.Double(6));
      } else {
        TakeSale(of, LotId{row.Int(4)}, *account, row.Int(5), row.Double(6));
      }
    }
  }

  void TakeSale(const ClientYear& of, LotId id, int account, int scrip, double quantity) {
    LotState* lot = FindById(id);
    if (lot != nullptr && lot->of == of && lot->lot.account.value == account &&
        lot->lot.scrip.value == scrip) {
      lot->computed -= quantity;
    }
  }

  void AddTransfers() {
    std::string sql = "Select Fyear,ScrId,PRate,FrmAcId,ToAcId,Qty From ScrTransfer";
    std::vector<Value> values;
    if (of_) {
      sql += " Where Fyear=?";
      values = {of_->year.Text()};
    }
    for (const auto& row : connection_.OpenValues(sql, values)) {
      const int year = years_.Read(row.Utf8(0)).FirstCalendarYear();
      const double quantity = row.Double(5);
      Move({year, row.Int(3), row.Int(1), row.Double(2)}, -quantity);
      if (row.Int(3) != row.Int(4)) {
        Move({year, row.Int(4), row.Int(1), row.Double(2)}, quantity);
      }
    }
  }

  void Move(const PlaceKey& key, double quantity) {
    for (std::int64_t i = FirstAt(key); i >= 0;
         i = lots_[static_cast<std::size_t>(i)].next_at_place) {
      lots_[static_cast<std::size_t>(i)].computed += quantity;
    }
  }

  std::vector<LotChange> Differences() {
    std::vector<LotChange> changes;
    for (const LotState& state : lots_) {
      const double computed = SettleQuantity(state.computed);
      if (const LotState* kept = state.duplicate ? Find(state.of, KeyOf(state)) : nullptr;
          kept != nullptr && kept->lot.id == state.lot.id) {
        // Which of two rows of one id is deleted is open; the one that stays gets its quantity.
        changes.push_back({kept->of, kept->lot, SettleQuantity(kept->computed), false});
      }
      if (state.duplicate || computed != SettleQuantity(state.lot.quantity)) {
        changes.push_back({state.of, state.lot, computed, state.duplicate});
      }
    }
    return changes;
  }

  Connection& connection_;
  std::optional<ClientYear> of_;
  Progress& progress_;
  YearCache years_;
  int steps_ = 0;
  std::vector<LotState> lots_;
  IdMap<std::uint32_t> by_id_;
  IdMap<int> accounts_;
  std::unordered_map<PlaceKey, std::int64_t, PlaceKeyHash> by_place_;
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
      set.Double(change.quantity).Int(change.lot.id.value).EndRow();
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
      changed.Int(change.lot.id.value).Double(change.quantity).EndRow();
    }
  }
  changed.Finish();
  transaction.Execute("Update Stock S Join LotChanges C On C.Id=S.Id Set S.Qty=C.Qty");
  transaction.Execute("Drop Temporary Table LotChanges");
  return true;
}

}  // namespace

std::vector<LotChange> CheckStock(Connection& connection, const std::optional<ClientYear>& of,
                                  Progress& progress) {
  return Recount(connection, of, progress).Run();
}

std::size_t RebuildStock(Transaction& transaction, const std::optional<ClientYear>& of,
                         Progress& progress) {
  // In the order in which a saved record takes them, so that the two do not wait for each other.
  transaction.Execute("Delete From Stock_Temp");
  LockLots(transaction, of);
  const std::vector<LotChange> changes = CheckStock(transaction.GetConnection(), of, progress);
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
  database::InTransaction(connection, [&](Transaction& transaction) -> MaybeRefusal {
    changed = RebuildStock(transaction, of, progress);
    return std::nullopt;
  });
  return changed;
}

}  // namespace quorvane::ledger
