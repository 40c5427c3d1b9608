#include "masters/fair_values/FairValueBook.h"

#include "core/records/Masters.h"
#include "core/records/Query.h"
#include "core/text/Tr.h"

namespace quorvane::fair_values {
namespace {

using database::Transaction;
using tax::FairValues;

/// Locks the scrips, so that none is deleted before its value is written.
MaybeRefusal CheckScrips(Transaction& transaction, const FairValues& values) {
  std::vector<ScripId> scrips;
  for (const auto& [scrip, rate] : values) {
    scrips.push_back(scrip);
  }
  std::size_t found = 0;
  records::Select<records::Scrip>(transaction.GetConnection())
      .In(&records::Scrip::id, scrips)
      .Shared()
      .Only<&records::Scrip::id>([&](const records::Scrip&) { ++found; });
  if (found < scrips.size()) {
    return Refusal{Tr("FairValues", "A Script was Deleted Meanwhile. Open the Window Again."),
                   Field::kScrip};
  }
  return std::nullopt;
}

MaybeRefusal Write(Transaction& transaction, const FairValues& changed) {
  for (const auto& [scrip, rate] : changed) {
    if (MaybeRefusal refusal = tax::CheckFairValue(rate)) {
      return refusal;
    }
  }
  if (MaybeRefusal refusal = CheckScrips(transaction, changed)) {
    return refusal;
  }
  tax::SaveFairValues(transaction, changed);
  return std::nullopt;
}

/// What of `after` is not in `before` with the same rate.
FairValues ChangedIn(const FairValues& before, const FairValues& after) {
  FairValues changed;
  for (const auto& [scrip, rate] : after) {
    const auto old = before.find(scrip);
    if (old == before.end() || old->second != rate) {
      changed.emplace(scrip, rate);
    }
  }
  return changed;
}

}  // namespace

MaybeRefusal FairValueBook::Save(const FairValues& before, const FairValues& after) {
  const FairValues changed = ChangedIn(before, after);
  std::vector<ScripId> removed;
  for (const auto& [scrip, rate] : before) {
    if (!after.contains(scrip)) {
      removed.push_back(scrip);
    }
  }
  return database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
    tax::RemoveFairValues(transaction, removed);
    return Write(transaction, changed);
  });
}

Result<Taken> FairValueBook::Raise(const FairValues& values) {
  const auto raise = [&](Transaction& transaction) -> Result<Taken> {
    const FairValues before = tax::ReadFairValues(transaction.GetConnection());
    FairValues after = before;
    const Taken taken = TakeHigher(after, values);
    if (const MaybeRefusal refusal = Write(transaction, ChangedIn(before, after))) {
      return *refusal;
    }
    return taken;
  };
  // Alone: of two programs that raise one value the higher one stays.
  return database::InTransaction(connection_, raise, database::Turn::kAlone);
}

Taken FairValueBook::WouldRaise(const FairValues& values) const {
  FairValues after = Read();
  return TakeHigher(after, values);
}

std::vector<rates::ListedScrip> FairValueBook::Missing(std::optional<ClientId> client) const {
  const std::set<ScripId> held = client ? tax::ScripsAcquiredByFairValueDay(connection_, *client)
                                        : tax::ScripsAcquiredByFairValueDay(connection_);
  const FairValues values = Read();
  std::vector<rates::ListedScrip> scrips = rates::ListScrips(connection_);
  std::erase_if(scrips, [&](const rates::ListedScrip& scrip) {
    return !held.contains(scrip.id) || values.contains(scrip.id);
  });
  return scrips;
}

}  // namespace quorvane::fair_values
