#include "reports/performance/MoneyWeighted.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>

namespace quorvane::performance {
namespace {

constexpr double kDaysOfYear = 365;
constexpr int kSteps = 1200;
constexpr int kHalvings = 200;

/// The discounted sum of flows as a function of the logarithm of 1 and the rate.
class DiscountedSum {
 public:
  explicit DiscountedSum(std::span<const CashFlow> flows) {
    std::map<text::Date, text::Paise> by_day;
    for (const CashFlow& flow : flows) {
      by_day[flow.day] += flow.amount;
    }
    std::erase_if(by_day, [](const auto& one) { return one.second == text::Paise(); });
    for (const auto& [day, amount] : by_day) {
      terms_.push_back({static_cast<double>((day - by_day.begin()->first).count()) / kDaysOfYear,
                        amount.Rupees()});
    }
  }

  /// How often the sign changes from one day's flow to the next.
  int SignChanges() const {
    int changes = 0;
    for (std::size_t i = 1; i < terms_.size(); ++i) {
      changes += (terms_[i].amount > 0) != (terms_[i - 1].amount > 0) ? 1 : 0;
    }
    return changes;
  }

  /// Times a positive factor that keeps every term within its amount, so that a long history does
  /// not overflow; the sign is that of the sum.
  double operator()(double log_rate) const {
    const double from = log_rate < 0 ? terms_.back().years : 0;
    double sum = 0;
    for (const Term& term : terms_) {
      sum += term.amount * std::exp(-log_rate * (term.years - from));
    }
    return sum;
  }

 private:
  struct Term {
    double years;
    double amount;
  };

  std::vector<Term> terms_;
};

/// The zero between two places of different signs, by halving until no double lies between them.
double ZeroBetween(const DiscountedSum& sum, double low, double high) {
  const bool low_is_positive = sum(low) > 0;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = low + (high - low) / 2;
    if (middle <= low || middle >= high) {
      break;
    }
    ((sum(middle) > 0) == low_is_positive ? low : high) = middle;
  }
  return low + (high - low) / 2;
}

}  // namespace

std::vector<double> MoneyWeightedReturns(std::span<const CashFlow> flows) {
  const DiscountedSum sum(flows);
  std::vector<double> rates;
  const int changes = sum.SignChanges();
  if (changes == 0) {
    return rates;
  }
  const double lowest = std::log1p(kLowestReturn);
  const double step = (std::log1p(kHighestReturn) - lowest) / kSteps;
  // With one change of sign there is at most one rate, so that the whole range is one step.
  const int stride = changes == 1 ? kSteps : 1;
  double before = sum(lowest);
  for (int i = stride; i <= kSteps; i += stride) {
    const double at = lowest + step * i;
    const double value = sum(at);
    if (value == 0) {
      rates.push_back(std::expm1(at));
    } else if (before != 0 && (before > 0) != (value > 0)) {
      rates.push_back(std::expm1(ZeroBetween(sum, at - step * stride, at)));
    }
    before = value;
  }
  return rates;
}

}  // namespace quorvane::performance
