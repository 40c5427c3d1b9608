#include "core/ledger/Lots.h"

#include "core/database/Keys.h"
#include "core/records/Writing.h"

#include <algorithm>
#include <bit>
#include <tuple>

namespace quorvane::ledger {

using records::Lot;

namespace {

using records::kScratchLots;

Shares Signed(Posting posting, Shares quantity) {
  return posting == Posting::kAdd ? quantity : -quantity;
}

void Update(Transaction& transaction, std::span<const Lots::Entry> entries) {
  database::BulkWriter update(transaction, "Update Stock Set Qty=? Where Id=?", "di");
  for (const Lots::Entry& entry : entries) {
    if (!entry.is_new && entry.lot.quantity != entry.stored) {
      update.Double(entry.lot.quantity.Number()).Int(entry.lot.id.value).EndRow();
    }
  }
  update.Finish();
}

}  // namespace

LotKey KeyOf(const Lot& lot) {
  return {lot.Of(), lot.account, lot.scrip, lot.rate};
}

std::size_t Lots::KeyHash::operator()(const LotKey& key) const noexcept {
  // -0.0 and 0.0 are one rate.
  const auto rate = std::bit_cast<std::uint64_t>(key.rate == 0 ? 0.0 : key.rate);
  std::uint64_t hash = rate ^ (static_cast<std::uint64_t>(key.scrip.value) * 0x9E3779B97F4A7C15ULL);
  hash ^= (static_cast<std::uint64_t>(key.account.value) << 20) ^
          (static_cast<std::uint64_t>(key.of.year.FirstCalendarYear()) << 52);
  hash *= 0xD6E8FEB86659FD93ULL;
  return hash ^ (hash >> 32);
}

bool Lots::SamePlace::operator()(const LotKey& a, const LotKey& b) const noexcept {
  return a.of.year == b.of.year && a.account == b.account && a.scrip == b.scrip && a.rate == b.rate;
}

std::uint32_t Lots::FirstAt(const LotKey& key) const {
  const auto found = by_key_.find(key);
  return found == by_key_.end() ? kNone : found->second;
}

std::uint32_t Lots::IndexOf(const LotKey& key) const {
  std::uint32_t index = FirstAt(key);
  while (index != kNone && entries_[index].lot.client != key.of.client) {
    index = entries_[index].next;
  }
  return index;
}

void Lots::Append(const Lot& lot, Shares stored, bool is_new) {
  const auto index = static_cast<std::uint32_t>(entries_.size());
  const LotKey key = KeyOf(lot);
  entries_.push_back({lot, stored, is_new, IndexOf(key) != kNone, kNone});
  by_id_.try_emplace(lot.id, index);
  if (!entries_.back().duplicate) {
    const auto [at, first] = by_key_.try_emplace(key, index);
    if (!first) {
      entries_.back().next = std::exchange(at->second, index);
    }
  }
}

void Lots::Load(const Lot& lot) {
  Append(lot, lot.quantity, false);
}

const Lot* Lots::Find(const LotKey& key) const {
  const std::uint32_t index = IndexOf(key);
  return index == kNone ? nullptr : &entries_[index].lot;
}

const Lot* Lots::Find(LotId id) const {
  const auto found = by_id_.find(id);
  return found == by_id_.end() ? nullptr : &entries_[found->second].lot;
}

const Lot* Lots::Find(const Place& place, LotId id, ScripId scrip) const {
  const Lot* lot = Find(id);
  const bool fits = lot != nullptr && lot->Of() == place.of && lot->account == place.account &&
                    lot->scrip == scrip;
  return fits ? lot : nullptr;
}

bool Lots::IsDuplicate(LotId id) const {
  const auto found = by_id_.find(id);
  return found != by_id_.end() && entries_[found->second].duplicate;
}

LotId Lots::PostLot(Posting posting, const LotKey& key, Shares quantity) {
  if (const std::uint32_t index = IndexOf(key); index != kNone) {
    entries_[index].lot.quantity += Signed(posting, quantity);
    return entries_[index].lot.id;
  }
  const LotId made{next_new_--};
  Append({key.of.client, key.of.year, made, key.account, key.scrip, quantity, key.rate}, {}, true);
  return made;
}

void Lots::AdjustLotQty(Posting posting, LotId id, Shares quantity) {
  const auto found = by_id_.find(id);
  if (found != by_id_.end()) {
    entries_[found->second].lot.quantity += Signed(posting, quantity);
  }
}

void Lots::PostUnknown(Posting posting, LotId id, ScripId scrip, Shares quantity) {
  unknown_[{id, scrip}] += Signed(posting, quantity);
}

std::vector<Lot> Lots::Of(const Place& place) const {
  std::vector<Lot> lots;
  for (const Entry& entry : entries_) {
    if (entry.lot.Of() == place.of && entry.lot.account == place.account) {
      lots.push_back(entry.lot);
    }
  }
  std::ranges::stable_sort(lots, {}, [](const Lot& lot) {
    // Lots that are not written yet have numbers below 0 and come after those that are.
    return std::tuple(lot.quantity, lot.id.value < 0, std::abs(lot.id.value));
  });
  return lots;
}

void Lots::Empty() {
  for (Entry& entry : entries_) {
    entry.lot.quantity = {};
  }
}

std::optional<ScripId> Lots::Shortage() const {
  const auto found = std::ranges::find_if(entries_, [](const Entry& entry) {
    return entry.lot.quantity < Shares() && entry.lot.quantity < entry.stored;
  });
  if (found != entries_.end()) {
    return found->lot.scrip;
  }
  const auto unknown =
      std::ranges::find_if(unknown_, [](const auto& taken) { return taken.second < Shares(); });
  return unknown == unknown_.end() ? std::nullopt : std::optional(unknown->first.second);
}

void Lots::Write(Transaction& transaction) {
  const auto count = std::ranges::count_if(entries_, &Entry::is_new);
  if (count > 0) {
    InsertNew(transaction, database::NextKeys(transaction, "Stock", static_cast<int>(count)));
  }
  Update(transaction, entries_);
}

void Lots::InsertNew(Transaction& transaction, int first) {
  records::Writer<Lot> insert(transaction);
  for (Entry& entry : entries_) {
    if (entry.is_new) {
      const LotId number{first++};
      numbered_.emplace(std::exchange(entry.lot.id, number), number);
      insert.Write(entry.lot);
    }
  }
  insert.Finish();
}

LotId Lots::Numbered(LotId id) const {
  const auto found = numbered_.find(id);
  return found == numbered_.end() ? id : found->second;
}

std::vector<Lot> ReadLots(Connection& connection, const LotScope& scope) {
  return records::Select<Lot>(connection)
      .Where(&Lot::client, scope.client)
      .Where(&Lot::year, scope.year)
      .Where(&Lot::account, scope.account)
      .OrderBy(&Lot::id)
      .All();
}

void LockAndLoad(Transaction& transaction, Lots& lots, std::span<const Place> places) {
  std::vector<Place> ordered(places.begin(), places.end());
  std::ranges::sort(ordered);
  ordered.erase(std::unique(ordered.begin(), ordered.end()), ordered.end());
  for (const Place& place : ordered) {
    records::Select<Lot>(transaction.GetConnection())
        .Where(&Lot::client, place.of.client)
        .Where(&Lot::year, place.of.year)
        .Where(&Lot::account, place.account)
        .OrderBy(&Lot::id)
        .ForUpdate()
        .Each([&](const Lot& lot) { lots.Load(lot); });
  }
}

void ClearScratch(Transaction& transaction, const ClientYear& of) {
  records::Delete<Lot>(transaction, kScratchLots)
      .Where(&Lot::client, of.client)
      .Where(&Lot::year, of.year)
      .Run();
}

void WriteScratch(Transaction& transaction, const ClientYear& of, const Lots& lots) {
  ClearScratch(transaction, of);
  records::Writer<Lot> writer(transaction, kScratchLots);
  for (const Lots::Entry& entry : lots.Entries()) {
    writer.Write(entry.lot);
  }
  writer.Finish();
}

void LockLots(Transaction& transaction, const std::optional<ClientYear>& of) {
  if (of) {
    transaction.Open("Select Count(*) From Stock Where Cid=? and Fyear=? For Update", of->client,
                     of->year.Text());
  } else {
    transaction.Open("Select Count(*) From Stock For Update");
  }
}

}  // namespace quorvane::ledger
