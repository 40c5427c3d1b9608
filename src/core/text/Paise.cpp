#include "core/text/Paise.h"

#include <algorithm>

namespace quorvane::text {

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
  const double next = Tidy(up_to - given_);
  given_ = up_to;
  return next;
}

}  // namespace quorvane::text
