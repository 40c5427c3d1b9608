#include "core/gains/AverageCost.h"

#include "core/text/Amounts.h"
#include "core/text/Shares.h"

#include <algorithm>

namespace quorvane::gains {
namespace {

using text::Shares;

constexpr double kPaise = 100;  // a rupee

std::int64_t Rounded(double paise) {
  return text::ToPaise(paise / kPaise);
}

}  // namespace

double AverageCost::CostOf(double shares) const {
  return shares == shares_ ? cost_ : cost_ * shares / shares_;
}

void AverageCost::Receive(double shares, std::int64_t paid) {
  if (!(shares > 0)) {
    return;
  }
  const double cost = held_ > 0 ? CostOf(held_) : 0;
  held_ = Shares::Clean(held_ + shares);
  shares_ = held_;
  cost_ = cost + static_cast<double>(paid);
  held_cost_ += paid;
}

std::int64_t AverageCost::Release(double shares) {
  held_ = std::max(0.0, Shares::Clean(held_ - shares));
  const std::int64_t left = held_ > 0 ? Rounded(CostOf(held_)) : 0;
  const std::int64_t cost = held_cost_ - left;
  held_cost_ = left;
  return cost;
}

double AverageCost::Average() const {
  return held_ > 0 ? text::Tidy(cost_ / shares_ / kPaise) : 0;
}

}  // namespace quorvane::gains
