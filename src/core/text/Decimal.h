#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quorvane::text {

/// The decimal digits of a finite double: d.ddd x 10^exponent without its sign and without zeros
/// at the end. The slow and exact way behind the number formats.
struct Decimal {
  std::array<char, 17> digits{};
  int count = 0;
  int exponent = 0;
};

/// Rounded to 15 significant digits.
Decimal FifteenDigits(double value);

/// As few digits as read back as the same double, at most 17.
Decimal ShortestDigits(double value);

/// The decimal times 10^decimals, rounded half away from zero; nullopt when that has more than 18
/// digits.
std::optional<std::uint64_t> Scaled(const Decimal& decimal, int decimals);

/// Plain digits: "0.00125", "1250000", "12.5".
void AppendPlain(std::string& out, const Decimal& decimal);

}  // namespace quorvane::text
