#include "core/text/Amounts.h"

#include "core/text/Decimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace quorvane::text {
namespace {

constexpr int kPaiseDecimals = 2;
constexpr int kPercentDecimals = 3;
constexpr int kPaise = 100;
constexpr std::int64_t kLargestPaise = 1'000'000'000'000'000'000;

constexpr std::uint64_t PowerOfTen(int exponent) {
  return exponent == 0 ? 1 : 10 * PowerOfTen(exponent - 1);
}

/// Rounds without looking at decimal digits; false when the value is too large or so near to a tie
/// that only its digits can tell. The 15-digit form differs from the double by at most 5e-15 of
/// it; twice that is the distance that counts as safe.
bool ScaleFast(double magnitude, int decimals, std::uint64_t& number) {
  constexpr double kLimit = 1e13;
  constexpr double kDoubt = 1e-14;
  const double scaled = magnitude * static_cast<double>(PowerOfTen(decimals));
  if (!(scaled < kLimit)) {
    return false;
  }
  const auto whole = static_cast<std::int64_t>(scaled);
  const double above_tie = scaled - static_cast<double>(whole) - 0.5;
  number = static_cast<std::uint64_t>(whole + (above_tie > 0 ? 1 : 0));
  return std::abs(above_tie) > scaled * kDoubt;
}

/// |value| x 10^decimals rounded half away from zero; nullopt for a finite value of more than 18
/// digits. `value` is finite.
std::optional<std::uint64_t> Round(double value, int decimals) {
  std::uint64_t number = 0;
  if (ScaleFast(std::abs(value), decimals, number)) {
    return number;
  }
  return Scaled(FifteenDigits(value), decimals);
}

void AppendScaled(std::string& out, bool negative, std::uint64_t number, int decimals) {
  std::array<char, 32> text{};
  char* at = text.data();
  char* const end = at + text.size();
  if (negative) {
    *at++ = '-';
  }
  const std::uint64_t one = PowerOfTen(decimals);
  at = std::to_chars(at, end, number / one).ptr;
  // The leading 1 keeps the zeros after the point and then gives its place to the point.
  char* const point = at;
  at = std::to_chars(at, end, one + number % one).ptr;
  *point = '.';
  out.append(text.data(), at);
}

void AppendNonFinite(std::string& out, double value) {
  if (std::isnan(value)) {
    out += "nan";
  } else {
    out += value < 0 ? "-inf" : "inf";
  }
}

void AppendHuge(std::string& out, double value, int decimals) {
  if (value < 0) {
    out += '-';
  }
  AppendPlain(out, FifteenDigits(value));
  out += '.';
  out.append(static_cast<std::size_t>(decimals), '0');
}

void AppendFixed(std::string& out, double value, int decimals) {
  if (!std::isfinite(value)) {
    AppendNonFinite(out, value);
  } else if (const auto number = Round(value, decimals)) {
    AppendScaled(out, value < 0 && *number != 0, *number, decimals);
  } else {
    AppendHuge(out, value, decimals);
  }
}

std::string Fixed(double value, int decimals) {
  std::string text;
  AppendFixed(text, value, decimals);
  return text;
}

/// Sets commas into an amount's whole rupees: before the last three digits, then every `later`.
void SetCommas(std::string& amount, std::size_t later) {
  const std::size_t point = amount.find('.');
  if (point == std::string::npos) {
    return;
  }
  const std::size_t first_digit = amount.front() == '-' ? 1 : 0;
  std::size_t step = 3;
  for (std::size_t at = point; at > first_digit + step;) {
    at -= step;
    amount.insert(at, 1, ',');
    step = later;
  }
}

}  // namespace

QString FormatAmount(double value) {
  return QString::fromStdString(Fixed(value, kPaiseDecimals));
}
QString FormatPercent(double value) {
  return QString::fromStdString(Fixed(value, kPercentDecimals));
}
QString FormatSummary(double value) {
  return FormatAmount(value);
}

QString FormatThousands(double value) {
  std::string text = Fixed(value, kPaiseDecimals);
  SetCommas(text, 3);
  // The mask has no place that must be filled before the point.
  const std::size_t first_digit = text.front() == '-' ? 1 : 0;
  if (text.compare(first_digit, 2, "0.") == 0) {
    text.erase(first_digit, 1);
  }
  return QString::fromStdString(text);
}

void AppendAmount(std::string& out, double value) {
  AppendFixed(out, value, kPaiseDecimals);
}

std::int64_t ToPaise(double rupees) {
  if (std::isnan(rupees)) {
    return 0;
  }
  std::int64_t paise = kLargestPaise;
  if (std::isfinite(rupees)) {
    paise = static_cast<std::int64_t>(Round(rupees, kPaiseDecimals).value_or(kLargestPaise));
  }
  return rupees < 0 ? -paise : paise;
}

double FromPaise(std::int64_t paise) {
  return static_cast<double>(paise) / kPaise;
}

void AppendPaise(std::string& out, std::int64_t paise) {
  const auto bits = static_cast<std::uint64_t>(paise);
  AppendScaled(out, paise < 0, paise < 0 ? 0 - bits : bits, kPaiseDecimals);
}

double RoundAmount(double value) {
  // From here on a double's 15 digits hold no more than two decimals.
  constexpr double kNoThirdDecimal = 1e12;
  if (!(std::abs(value) < kNoThirdDecimal)) {
    return Tidy(value);
  }
  return FromPaise(ToPaise(value));
}

}  // namespace quorvane::text
