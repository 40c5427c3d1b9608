#pragma once

#include "core/gains/Matching.h"
#include "core/text/Amounts.h"

#include <cstdint>

namespace quorvane::gains {

/// The amounts of a match. In a header to be inlined into the loop over the sales.

/// What shares of a purchase cost in rupees, with the chosen charges. Multiplies before it divides
/// and rounds nothing, so that a cost of exactly half a paisa is rounded only once, later.
inline double CostOf(const Purchase& purchase, double shares, ChargeChoice charges) {
  const double paid =
      (charges.service_tax ? purchase.service_tax : 0) + (charges.stt ? purchase.stt : 0);
  const double cost = purchase.net * shares;
  return paid != 0 && purchase.quantity > 0 ? cost + paid * shares / purchase.quantity : cost;
}

/// Divides an amount among the parts of a quantity so that the rounded parts add up to it.
class Spread {
 public:
  /// `whole` in rupees for `quantity` shares.
  Spread(double whole, double quantity)
      : whole_(whole), quantity_(quantity), paise_(text::ToPaise(whole)) {}

  /// The next part in paise, with `open` shares still to come after it.
  std::int64_t Next(double open) {
    const std::int64_t upto =
        open > 0 && paise_ != 0 ? text::ToPaise(whole_ * (quantity_ - open) / quantity_) : paise_;
    const std::int64_t part = upto - given_;
    given_ = upto;
    return part;
  }

 private:
  double whole_;
  double quantity_;
  std::int64_t paise_;
  std::int64_t given_ = 0;
};

}  // namespace quorvane::gains
