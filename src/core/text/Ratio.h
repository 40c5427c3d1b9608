#pragma once

#include "core/text/Paise.h"
#include "core/text/Shares.h"

#include <cstdint>

namespace quorvane::text {

/// whole * part / of, rounded half away from zero; 0 when `of` is 0. Exact: no product overflows.
std::int64_t Proportion(std::int64_t whole, std::int64_t part, std::int64_t of);

/// The part of an amount that falls to a part of a quantity.
inline Paise PartOf(Paise whole, Shares part, Shares of) {
  return Paise(Proportion(whole.Count(), part.Millionths(), of.Millionths()));
}

/// How many shares there are for each share held: `of_new` for `of_old`. Both are kept to a
/// millionth, as some ratios have decimals (1 for 11.10).
struct ShareRatio {
  Shares of_new;
  Shares of_old;

  /// The shares for a holding, to a millionth of a share.
  Shares Of(Shares held) const {
    return Shares::OfMillionths(
        Proportion(held.Millionths(), of_new.Millionths(), of_old.Millionths()));
  }

  /// The rate (rupees a share) that leaves the value of a holding as it was.
  double RateFor(double rate) const;
};

/// The whole shares in a quantity of zero or more.
constexpr Shares WholeShares(Shares shares) {
  constexpr std::int64_t kMillion = 1'000'000;
  return Shares::OfMillionths(shares.Millionths() - shares.Millionths() % kMillion);
}

}  // namespace quorvane::text
