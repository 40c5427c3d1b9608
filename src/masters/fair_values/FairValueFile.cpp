#include "masters/fair_values/FairValueFile.h"

#include <algorithm>
#include <utility>

namespace quorvane::fair_values {

Result<rates::PriceFile> ReadDayFile(const QString& path) {
  Result<rates::PriceFile> file = rates::ReadPriceFile(path);
  if (file) {
    if (const MaybeRefusal refusal = rates::CheckHighestPrices(*file, tax::kFairValueDay)) {
      return *refusal;
    }
  }
  return file;
}

FileValues MatchHighest(rates::PriceFile file, const std::vector<rates::ListedScrip>& scrips) {
  for (rates::PriceRow& row : file.rows) {
    row.rate = row.high;
  }
  const rates::MatchedRates matched = rates::MatchRates(file, scrips);
  FileValues values{.highest = {}, .unmatched = matched.unmatched.size()};
  for (const rates::ScripRate& rate : matched.rates) {
    TakeHigher(values.highest, {{rate.scrip, rate.rate}});
  }
  return values;
}

Taken TakeHigher(tax::FairValues& values, const tax::FairValues& others) {
  Taken taken;
  for (const auto& [scrip, rate] : others) {
    const auto [entry, fresh] = values.try_emplace(scrip, rate);
    if (fresh) {
      ++taken.added;
    } else if (entry->second < rate) {
      entry->second = rate;
      ++taken.raised;
    } else {
      ++taken.kept;
    }
  }
  return taken;
}

}  // namespace quorvane::fair_values
