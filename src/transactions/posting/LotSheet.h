#pragma once

#include "core/Refusal.h"
#include "core/ledger/Ledger.h"

#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace quorvane::posting {

/// The lots of an account of a client and year.
struct Place {
  ClientYear of;
  AccountId account;

  auto operator<=>(const Place&) const = default;
};

/// The lots of the accounts that a record touches, changed in memory and written back in one go.
/// So a record of many lines costs a few statements, and is judged by what it does in all: the
/// lots are checked when everything was posted, not on the way.
///
/// The lots are locked from their reading to the end of the transaction, so that nobody sells the
/// same shares meanwhile. Quantities are shares, settled as the ledger settles them.
class LotSheet {
 public:
  LotSheet(database::Transaction& transaction, ledger::LotTable table);

  /// Reads and locks an account's lots. Posting does it by itself; a caller who touches several
  /// accounts does it first and in ascending order, so that two of them do not wait for each other.
  void Load(const Place& place);

  /// The account's lot of that key number as it stands now.
  std::optional<ledger::Lot> Find(const Place& place, LotId lot);

  /// Posts into the lot of that key, which is made when there is none. Returns the lot.
  LotId Add(const ledger::LotKey& key, double quantity);
  void Take(const ledger::LotKey& key, double quantity) { Add(key, -quantity); }

  /// Posts into a lot by its number. What is posted into a lot that the account does not have, or
  /// not of this scrip, reaches no lot; more taken than given there counts as a shortage.
  void Add(const Place& place, LotId lot, ScripId scrip, double quantity);
  void Take(const Place& place, LotId lot, ScripId scrip, double quantity) {
    Add(place, lot, scrip, -quantity);
  }

  /// The message of the first lot that was lowered below zero, if there is one.
  MaybeRefusal CheckShortage(const QString& field) const;

  /// Writes the new lots and those whose quantity changed.
  void Write();

 private:
  using Key = std::tuple<Place, ScripId, double>;

  enum class Kind : std::uint8_t { kStored, kNew, kUnknown };

  struct Row {
    Place place;
    ledger::Lot lot;
    double stored = 0;
    Kind kind = Kind::kStored;
  };

  std::size_t Append(const Row& row);
  Row& At(const ledger::LotKey& key);
  Row& At(const Place& place, LotId lot, ScripId scrip);
  bool Holds(LotId lot, const Place& place) const;
  LotId NewLot();

  database::Transaction& transaction_;
  ledger::LotTable table_;
  std::set<Place> loaded_;
  std::vector<Row> rows_;
  std::map<Key, std::size_t> by_key_;
  std::unordered_map<LotId, std::size_t> by_id_;
  std::unordered_map<LotId, std::size_t> unknown_;
  int next_id_ = 0;
};

}  // namespace quorvane::posting
