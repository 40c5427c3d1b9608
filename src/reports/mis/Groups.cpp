#include "reports/mis/Groups.h"

#include <algorithm>
#include <unordered_map>

namespace quorvane::mis {
namespace {

int IdAt(Level level, const Holding& holding) {
  switch (level) {
    case Level::kGroup:
    case Level::kClient:
      return holding.client.value;
    case Level::kAccount:
      return holding.account.value;
    case Level::kScrip:
      break;
  }
  return holding.scrip.value;
}

std::string KeyAt(Level level, const Holding& holding, const Names& names) {
  switch (level) {
    case Level::kGroup:
      return names.GroupSortKey(holding.client);
    case Level::kClient:
      return names.SortKey(holding.client);
    case Level::kAccount:
      return names.SortKey(holding.account);
    case Level::kScrip:
      break;
  }
  return names.SortKey(holding.scrip);
}

/// The rank of what each id stands for; groups of one name share theirs.
std::unordered_map<int, std::uint32_t> RanksOf(Level level, const std::vector<Holding>& holdings,
                                               const Names& names) {
  std::unordered_map<int, std::string> keys;
  for (const Holding& holding : holdings) {
    const auto [at, added] = keys.try_emplace(IdAt(level, holding));
    if (added) {
      at->second = KeyAt(level, holding, names);
    }
  }
  std::vector<std::string> sorted;
  sorted.reserve(keys.size());
  for (const auto& [id, key] : keys) {
    sorted.push_back(key);
  }
  std::ranges::sort(sorted);
  std::unordered_map<int, std::uint32_t> ranks;
  for (const auto& [id, key] : keys) {
    ranks[id] = static_cast<std::uint32_t>(std::ranges::lower_bound(sorted, key) - sorted.begin());
  }
  return ranks;
}

bool HasSeveralClients(const std::vector<Holding>& holdings) {
  return std::ranges::any_of(
      holdings, [&](const Holding& holding) { return holding.client != holdings.front().client; });
}

}  // namespace

std::vector<Level> LevelsOf(Grouping grouping, bool detail) {
  switch (grouping) {
    case Grouping::kScrip:
      return detail ? std::vector{Level::kScrip, Level::kAccount} : std::vector<Level>();
    case Grouping::kAccount:
      return detail ? std::vector{Level::kAccount, Level::kScrip} : std::vector{Level::kAccount};
    case Grouping::kClient:
      break;
  }
  return detail ? std::vector{Level::kGroup, Level::kClient, Level::kAccount, Level::kScrip}
                : std::vector{Level::kGroup, Level::kClient};
}

// Holdings come by client, scrip and account: the stable sort keeps that order below the path.
std::vector<Place> OrderBy(const std::vector<Level>& levels, const std::vector<Holding>& holdings,
                           const Names& names) {
  std::vector<Level> all = levels;
  if (std::ranges::find(all, Level::kScrip) == all.end()) {
    all.push_back(Level::kScrip);
  }
  std::vector<Place> places(holdings.size());
  for (std::size_t i = 0; i < holdings.size(); ++i) {
    places[i].holding = i;
  }
  for (std::size_t level = 0; level < all.size(); ++level) {
    const auto ranks = RanksOf(all[level], holdings, names);
    for (Place& place : places) {
      place.path[level] = ranks.at(IdAt(all[level], holdings[place.holding]));
    }
  }
  std::ranges::stable_sort(places, {}, &Place::path);
  return places;
}

GroupHeadings::GroupHeadings(const ReportForm& form, const std::vector<Holding>& holdings,
                             const Names& names, const std::vector<Level>& levels)
    : form_(form), names_(names), levels_(levels), several_clients_(HasSeveralClients(holdings)) {}

QString GroupHeadings::NameAt(Level level, const Holding& holding) const {
  switch (level) {
    case Level::kGroup: {
      const QString group = names_.GroupOf(holding.client);
      return group.isEmpty() ? QStringLiteral("(none)") : group;
    }
    case Level::kClient:
      return names_.Client(holding.client);
    case Level::kAccount:
      return names_.Account(holding.account);
    case Level::kScrip:
      break;
  }
  return names_.Scrip(holding.scrip);
}

QString GroupHeadings::At(Level level, const Holding& holding) const {
  QString name = NameAt(level, holding);
  switch (level) {
    case Level::kGroup:
      return QStringLiteral("GROUP NAME- ") + name;
    case Level::kAccount:
      return (holding.account ? QStringLiteral("Demat A/c No - ") + name
                              : QStringLiteral("Without Demat A/c")) +
             OwnerOf(holding);
    case Level::kScrip:
      return name + form_.Mark(holding.scrip);
    case Level::kClient:
      break;
  }
  return name;
}

QString GroupHeadings::OwnerOf(const Holding& holding) const {
  const bool told = levels_.front() == Level::kGroup || !several_clients_;
  return told ? QString() : QStringLiteral(", ") + names_.Client(holding.client);
}

}  // namespace quorvane::mis
