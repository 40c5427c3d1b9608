#include "core/positions/FairRates.h"

#include <numeric>

namespace quorvane::positions {

void FairRate::Split(const text::ShareRatio& ratio) {
  const std::int64_t held = ratio.of_old.Millionths();
  const std::int64_t made = ratio.of_new.Millionths();
  const std::int64_t common = std::gcd(held, made);
  if (held <= 0 || made <= 0) {
    return;
  }
  numerator_ *= held / common;
  denominator_ *= made / common;
  const std::int64_t whole = std::gcd(numerator_, denominator_);
  if (whole > 1) {
    numerator_ /= whole;
    denominator_ /= whole;
  }
}

text::Paise FairRate::ValueOf(text::Shares quantity) const {
  // A million for the rate and one for the shares, less a hundred paise to the rupee.
  constexpr std::int64_t kScale = 10'000'000'000;
  return text::Paise(text::Proportion(numerator_, quantity.Millionths(), denominator_ * kScale));
}

FairRates::FairRates(const tax::FairValues& values) {
  for (const auto& [scrip, rate] : values) {
    rates_.emplace(scrip, FairRate(rate));
  }
}

const FairRate* FairRates::Find(ScripId scrip) const {
  const auto found = rates_.find(scrip);
  return found == rates_.end() ? nullptr : &found->second;
}

void FairRates::Split(ScripId scrip, const text::ShareRatio& ratio) {
  const auto found = rates_.find(scrip);
  if (found != rates_.end()) {
    found->second.Split(ratio);
  }
}

}  // namespace quorvane::positions
