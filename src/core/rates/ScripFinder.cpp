#include "core/rates/ScripFinder.h"

#include "core/lookups/Directory.h"

#include <algorithm>
#include <iterator>

namespace quorvane::rates {

using lookups::Folded;

ScripFinder::ScripFinder(const std::vector<ListedScrip>& scrips) {
  for (const ListedScrip& scrip : scrips) {
    by_code_.emplace(Folded(scrip.code), scrip.id);
    by_symbol_.emplace(Folded(scrip.symbol), scrip.id);
    for (const std::string& isin : scrip.isins) {
      by_isin_.emplace(Folded(isin), scrip.id);
    }
  }
}

std::vector<ScripId> ScripFinder::Find(const Index& index, const std::string& key) {
  std::vector<ScripId> found;
  if (!key.empty()) {
    const auto [first, last] = index.equal_range(Folded(key));
    std::transform(first, last, std::back_inserter(found),
                   [](const auto& entry) { return entry.second; });
  }
  return found;
}

}  // namespace quorvane::rates
