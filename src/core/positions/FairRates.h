#pragma once

#include "core/Ids.h"
#include "core/tax/FairValues.h"
#include "core/text/Paise.h"
#include "core/text/Ratio.h"

#include <unordered_map>

namespace quorvane::positions {

/// The highest price of 31-Jan-2018 for a share of today: splits since then divide it.
class FairRate {
 public:
  explicit FairRate(double rate) : numerator_(text::Shares(rate).Millionths()) {}

  /// Shares of a day are worth as much as those that a split or consolidation makes of them.
  void Split(const text::ShareRatio& ratio);

  text::Paise ValueOf(text::Shares quantity) const;

 private:
  std::int64_t numerator_;  ///< millionths of a rupee
  std::int64_t denominator_ = 1;
};

/// The rates of the scrips whose price of that day is known.
class FairRates {
 public:
  explicit FairRates(const tax::FairValues& values);

  /// nullptr when the price is not known.
  const FairRate* Find(ScripId scrip) const;
  void Split(ScripId scrip, const text::ShareRatio& ratio);

 private:
  std::unordered_map<ScripId, FairRate> rates_;
};

}  // namespace quorvane::positions
