#pragma once

#include "core/text/Amounts.h"
#include "core/text/Shares.h"

#include <compare>
#include <cstdint>

namespace quorvane::text {

/// An amount of money in whole paise. Sums stay exact: what is shown is what is added up.
class Paise {
 public:
  constexpr Paise() = default;
  constexpr explicit Paise(std::int64_t paise) : paise_(paise) {}

  /// Rounds half away from zero, as FormatAmount shows the number.
  static Paise OfRupees(double rupees) { return Paise(ToPaise(rupees)); }

  constexpr std::int64_t Count() const { return paise_; }
  double Rupees() const { return FromPaise(paise_); }

  constexpr auto operator<=>(const Paise&) const = default;
  constexpr Paise operator-() const { return Paise(-paise_); }
  constexpr Paise& operator+=(Paise other) {
    paise_ += other.paise_;
    return *this;
  }
  constexpr Paise& operator-=(Paise other) {
    paise_ -= other.paise_;
    return *this;
  }
  friend constexpr Paise operator+(Paise a, Paise b) { return a += b; }
  friend constexpr Paise operator-(Paise a, Paise b) { return a -= b; }

 private:
  std::int64_t paise_ = 0;
};

/// Divides an amount in rupees among parts of a quantity, one after the other. Up to any part the
/// sum is the amount of the shares so far, rounded to paise; the last part gets what is left. So no
/// part has another sign than the whole and the parts add up to it, also a whole with fractions of
/// a paisa.
class ShareOut {
 public:
  ShareOut(double whole, Shares quantity) : whole_(whole), quantity_(quantity) {}

  /// Rupees for the next `part` shares.
  double Next(Shares part);

 private:
  double UpTo(Shares taken) const;

  double whole_;
  Shares quantity_;
  Shares taken_;
  double given_ = 0;
};

}  // namespace quorvane::text
