#pragma once

#include <cmath>
#include <compare>
#include <cstdint>

namespace quorvane::text {

/// A quantity of shares, exact to a millionth of a share. Sums of quantities stay exact, so that
/// what was bought and sold again leaves nothing. About nine million million shares at most; a
/// larger number becomes that, and what is no number becomes 0.
class Shares {
 public:
  constexpr Shares() = default;

  /// Rounds half away from zero to six decimals.
  explicit Shares(double shares) : millionths_(Rounded(shares)) {}
  static constexpr Shares OfMillionths(std::int64_t millionths) {
    Shares shares;
    shares.millionths_ = millionths;
    return shares;
  }

  constexpr std::int64_t Millionths() const { return millionths_; }

  /// The double nearest to the decimal number: what is stored, shown and multiplied by a rate.
  constexpr double Number() const { return static_cast<double>(millionths_) / kMillion; }

  /// A quantity without the rounding error of sums and differences, for loops that count in
  /// doubles. Of 9e9 shares and more it is left as it is.
  static double Clean(double shares) {
    constexpr double kLargest = 9e9;
    if (!(std::abs(shares) < kLargest)) {
      return shares;
    }
    const auto millionths =
        static_cast<std::int64_t>(shares * kMillion + std::copysign(0.5, shares));
    return OfMillionths(millionths).Number();
  }

  constexpr auto operator<=>(const Shares&) const = default;
  constexpr explicit operator bool() const { return millionths_ != 0; }

  constexpr Shares operator-() const { return OfMillionths(-millionths_); }
  constexpr Shares& operator+=(Shares other) {
    millionths_ += other.millionths_;
    return *this;
  }
  constexpr Shares& operator-=(Shares other) {
    millionths_ -= other.millionths_;
    return *this;
  }
  friend constexpr Shares operator+(Shares a, Shares b) { return a += b; }
  friend constexpr Shares operator-(Shares a, Shares b) { return a -= b; }

 private:
  static constexpr double kMillion = 1e6;

  static std::int64_t Rounded(double shares) {
    constexpr double kMost = 9e18;
    const double millionths = shares * kMillion;
    if (!(std::abs(millionths) < kMost)) {
      return std::isnan(shares) ? 0 : static_cast<std::int64_t>(std::copysign(kMost, shares));
    }
    return static_cast<std::int64_t>(std::round(millionths));
  }

  std::int64_t millionths_ = 0;
};

}  // namespace quorvane::text
