#include "core/text/Decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace quorvane::text {
namespace {

constexpr int kLongestScaled = 18;

/// Takes "d.ddde[+-]dd" apart.
Decimal FromScientific(const char* begin, const char* end) {
  Decimal decimal;
  const char* at = begin;
  for (; *at != 'e'; ++at) {
    if (*at != '.') {
      decimal.digits[static_cast<std::size_t>(decimal.count++)] = *at;
    }
  }
  ++at;
  std::from_chars(*at == '+' ? at + 1 : at, end, decimal.exponent);
  while (decimal.count > 1 && decimal.digits[static_cast<std::size_t>(decimal.count - 1)] == '0') {
    --decimal.count;
  }
  return decimal;
}

}  // namespace

Decimal FifteenDigits(double value) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), std::abs(value),
                                 std::chars_format::scientific, 14);
  return FromScientific(text.data(), end.ptr);
}

Decimal ShortestDigits(double value) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), std::abs(value),
                                 std::chars_format::scientific);
  return FromScientific(text.data(), end.ptr);
}

std::optional<std::uint64_t> Scaled(const Decimal& decimal, int decimals) {
  const int kept = decimal.exponent + 1 + decimals;
  if (kept > kLongestScaled) {
    return std::nullopt;
  }
  std::uint64_t number = 0;
  for (int i = 0; i < kept; ++i) {
    const char digit = i < decimal.count ? decimal.digits[static_cast<std::size_t>(i)] : '0';
    number = number * 10 + static_cast<std::uint64_t>(digit - '0');
  }
  const bool rounds_up =
      kept >= 0 && kept < decimal.count && decimal.digits[static_cast<std::size_t>(kept)] >= '5';
  return rounds_up ? number + 1 : number;
}

void AppendPlain(std::string& out, const Decimal& decimal) {
  const char* digits = decimal.digits.data();
  const int point = decimal.exponent + 1;
  const int before = std::clamp(point, 0, decimal.count);
  if (point <= 0) {
    out += '0';
  }
  out.append(digits, static_cast<std::size_t>(before));
  out.append(static_cast<std::size_t>(std::max(0, point - decimal.count)), '0');
  if (before < decimal.count) {
    out += '.';
    out.append(static_cast<std::size_t>(std::max(0, -point)), '0');
    out.append(digits + before, static_cast<std::size_t>(decimal.count - before));
  }
}

}  // namespace quorvane::text
