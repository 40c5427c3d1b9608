#pragma once

#include "core/database/Transaction.h"
#include "core/records/Lot.h"

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quorvane::ledger {

using database::Connection;
using database::Transaction;
using text::Shares;

enum class Posting : std::uint8_t { kAdd, kSubtract };

/// The lots of an account of a client and year.
struct Place {
  ClientYear of;
  AccountId account;

  auto operator<=>(const Place&) const = default;
};

/// What makes a lot: shares of one scrip in one account, bought at one rate (rupees a share,
/// compared as exactly the double that was posted).
struct LotKey {
  ClientYear of;
  AccountId account;
  ScripId scrip;
  double rate = 0;

  bool operator==(const LotKey&) const = default;
};

LotKey KeyOf(const records::Lot& lot);

/// Lots in memory: what the ledger holds, and what records that are being entered or imported make
/// of it. The one place where shares are posted; the ledger's table is read into it and written
/// from it.
///
/// A lot that is made here has a number below 0 until it is written. Nothing in the database has
/// such a number, so a record under entry may name the lot by it.
class Lots {
 public:
  /// A lot with the quantity that it was read with.
  struct Entry {
    records::Lot lot;
    Shares stored;           ///< as the ledger has it
    bool is_new = false;     ///< not in the ledger yet
    bool duplicate = false;  ///< a second row of one lot, found by its number only
    std::uint32_t next = 0;  ///< another client's lot of the same account, scrip and rate
  };

  /// Takes a lot in as the ledger has it. Of two rows of one lot the first one counts.
  void Load(const records::Lot& lot);

  /// nullptr when there is none.
  const records::Lot* Find(const LotKey& key) const;
  const records::Lot* Find(LotId id) const;

  /// The lot of that number, when it is one of this account and scrip; else nullptr.
  const records::Lot* Find(const Place& place, LotId id, ScripId scrip) const;

  /// Whether the number is that of a second row of one lot.
  bool IsDuplicate(LotId id) const;

  /// Posts a positive quantity into the lot of that key and returns its number. A lot that does not
  /// exist is made with the quantity as it is given, with either `posting`; so a caller subtracts
  /// only from a lot that it has found.
  LotId PostLot(Posting posting, const LotKey& key, Shares quantity);

  /// Changes the quantity of the lot of that number; an unknown one changes nothing.
  void AdjustLotQty(Posting posting, LotId id, Shares quantity);

  /// Posts shares of a lot that the account does not have: no lot changes. When in the end more
  /// were taken than given back, they count as a shortage.
  void PostUnknown(Posting posting, LotId id, ScripId scrip, Shares quantity);

  /// Every lot, in the order in which they were loaded or made.
  std::span<const Entry> Entries() const { return entries_; }

  /// The account's lots, by quantity and then by number.
  std::vector<records::Lot> Of(const Place& place) const;

  /// All quantities become 0, as before the first document of the year.
  void Empty();

  /// Calls `change` with every lot of that account, scrip and rate, of every client.
  template <class Change>
  void ForEachClientAt(const LotKey& key, const Change& change) {
    for (std::uint32_t i = FirstAt(key); i != kNone; i = entries_[i].next) {
      change(entries_[i].lot);
    }
  }

  /// The scrip of the first lot that is below zero and lower than it was; a lot that was too low
  /// before may rise towards zero.
  std::optional<ScripId> Shortage() const;

  /// Writes the lots that are new, which get their numbers, and those whose quantity changed.
  void Write(Transaction& transaction);

  /// The number that a lot has once it is written; other numbers stay.
  LotId Numbered(LotId id) const;

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  struct KeyHash {
    std::size_t operator()(const LotKey& key) const noexcept;
  };
  /// Equal for different clients, too: a transfer finds the lots of its account by it.
  struct SamePlace {
    bool operator()(const LotKey& a, const LotKey& b) const noexcept;
  };

  void InsertNew(database::Transaction& transaction, int first);
  std::uint32_t FirstAt(const LotKey& key) const;
  std::uint32_t IndexOf(const LotKey& key) const;
  void Append(const records::Lot& lot, Shares stored, bool is_new);

  std::vector<Entry> entries_;
  std::unordered_map<LotKey, std::uint32_t, KeyHash, SamePlace> by_key_;
  std::unordered_map<LotId, std::uint32_t> by_id_;
  std::unordered_map<LotId, LotId> numbered_;
  std::map<std::pair<LotId, ScripId>, Shares> unknown_;
  int next_new_ = -1;
};

/// Which lots to read: of a client and year or of all, of one account or of all.
struct LotScope {
  std::optional<ClientId> client;
  std::optional<text::FinancialYear> year;
  std::optional<AccountId> account;

  static LotScope Of(const ClientYear& of) { return {of.client, of.year, std::nullopt}; }
  static LotScope Of(const Place& place) { return {place.of.client, place.of.year, place.account}; }
};

/// The lots of the ledger in the order of their numbers.
std::vector<records::Lot> ReadLots(Connection& connection, const LotScope& scope);

/// Reads an account's lots into `lots` and locks them to the end of the transaction, so that no
/// other program sells the same shares meanwhile. A record that touches several accounts locks them
/// in ascending order, so that two records do not wait for each other.
void LockAndLoad(Transaction& transaction, Lots& lots, std::span<const Place> places);

/// Replaces the client's lots of the year on the scratch table by these. They are not read from
/// there.
void WriteScratch(Transaction& transaction, const ClientYear& of, const Lots& lots);
void ClearScratch(Transaction& transaction, const ClientYear& of);

/// Waits until no other program changes lots of the client and year (of all, without `of`) and
/// keeps others waiting until the transaction ends. Documents are saved together with their lots,
/// so what the transaction reads from then on is complete and stays so. To be called before the
/// transaction reads anything: a read without locks fixes the state that all later ones see.
void LockLots(Transaction& transaction, const std::optional<ClientYear>& of);

}  // namespace quorvane::ledger
