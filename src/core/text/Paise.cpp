#include "core/text/Paise.h"

#include <algorithm>
#include <cmath>

namespace quorvane::text {
namespace {

/// A part of a whole, with the decimals that a double of the whole's size holds: a small rest of a
/// large whole has no digits beyond them.
double WithDecimalsOf(double whole, double part) {
  constexpr int kDigits = 15;
  const int before_the_point = static_cast<int>(std::floor(std::log10(std::abs(whole)))) + 1;
  const double scale = std::pow(10, kDigits - std::max(before_the_point, 0));
  return std::round(part * scale) / scale;
}

}  // namespace

/// Never beyond the whole: 0.016 rounds to 0.02, and the part after it would be negative.
double ShareOut::UpTo(Shares taken) const {
  if (taken >= quantity_) {
    return whole_;
  }
  const double part = RoundAmount(whole_ * taken.Number() / quantity_.Number());
  return whole_ < 0 ? std::max(part, whole_) : std::min(part, whole_);
}

double ShareOut::Next(Shares part) {
  taken_ += part;
  const double up_to = UpTo(taken_);
  const double next = given_ == 0 ? up_to : WithDecimalsOf(whole_, up_to - given_);
  given_ = up_to;
  return next;
}

}  // namespace quorvane::text
