#include "core/text/Amounts.h"
#include "core/text/Decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace quorvane::text {
namespace {

constexpr double kMillion = 1e6;

/// The fast way for numbers of up to six decimals: `millionths` / 1e6 is the value's decimal form
/// of 15 digits. That form is the only one of at most 15 digits within half a unit of the
/// fifteenth, and half a unit is never less than 5e-16 of the value; 3e-16 leaves room for the
/// rounding of the product. False when the value needs its digits looked at.
bool ToMillionths(double value, std::int64_t& millionths) {
  constexpr double kLimit = 1e15;
  constexpr double kNear = 3e-16;
  const double scaled = value * kMillion;
  if (!(std::abs(scaled) < kLimit)) {
    return false;
  }
  millionths = static_cast<std::int64_t>(scaled + std::copysign(0.5, scaled));
  return std::abs(scaled - static_cast<double>(millionths)) <= std::abs(scaled) * kNear;
}

double FromMillionths(std::int64_t millionths) {
  return static_cast<double>(millionths) / kMillion;
}

void AppendMillionths(std::string& out, std::int64_t millionths) {
  constexpr std::int64_t kOne = 1'000'000;
  std::array<char, 32> text{};
  char* at = text.data();
  char* const end = at + text.size();
  if (millionths < 0) {
    *at++ = '-';
  }
  const std::int64_t magnitude = std::abs(millionths);
  at = std::to_chars(at, end, magnitude / kOne).ptr;
  if (magnitude % kOne != 0) {
    // The leading 1 keeps the zeros after the point and then gives its place to the point.
    char* const point = at;
    at = std::to_chars(at, end, kOne + magnitude % kOne).ptr;
    *point = '.';
    while (at[-1] == '0') {
      --at;
    }
  }
  out.append(text.data(), at);
}

void AppendDigits(std::string& out, double value, Decimal (*digits)(double)) {
  if (std::isnan(value)) {
    out += "nan";
    return;
  }
  if (value < 0) {
    out += '-';
  }
  if (std::isinf(value)) {
    out += "inf";
  } else {
    AppendPlain(out, digits(value));
  }
}

bool IsBlank(QChar c) {
  return c.isSpace();
}

/// The characters of a leading number: a sign, digits and one point, blanks left out.
std::string LeadingNumber(QStringView text) {
  std::string number;
  bool point = false;
  for (const QChar c : text) {
    const char latin = c.toLatin1();
    const bool sign = (latin == '-' || latin == '+') && number.empty();
    const bool first_point = latin == '.' && !point;
    if (sign || first_point || (latin >= '0' && latin <= '9')) {
      number += latin;
      point = point || first_point;
    } else if (!IsBlank(c)) {
      break;
    }
  }
  return number;
}

}  // namespace

double Tidy(double value) {
  std::int64_t millionths = 0;
  if (ToMillionths(value, millionths)) {
    return FromMillionths(millionths);
  }
  if (!std::isfinite(value)) {
    return value;
  }
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::scientific, 14);
  double tidy = value;
  std::from_chars(text.data(), end.ptr, tidy);
  return tidy;
}

QString NumberText(double value) {
  std::string text;
  AppendNumber(text, value);
  return QString::fromStdString(text);
}

void AppendNumber(std::string& out, double value) {
  std::int64_t millionths = 0;
  if (ToMillionths(value, millionths)) {
    AppendMillionths(out, millionths);
  } else {
    AppendDigits(out, value, FifteenDigits);
  }
}

void AppendExact(std::string& out, double value) {
  std::int64_t millionths = 0;
  if (ToMillionths(value, millionths) && FromMillionths(millionths) == value) {
    AppendMillionths(out, millionths);
  } else {
    AppendDigits(out, value, ShortestDigits);
  }
}

double Val(QStringView text) {
  const std::string number = LeadingNumber(text);
  const char* begin = number.data();
  const char* const end = begin + number.size();
  if (!number.empty() && number.front() == '+') {
    ++begin;
  }
  double value = 0;
  std::from_chars(begin, end, value, std::chars_format::fixed);
  return value + 0.0;
}

std::optional<double> ParseNumber(std::string_view text) {
  const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
  if (digits.empty() || digits.find_first_not_of("0123456789.") != std::string_view::npos) {
    return std::nullopt;
  }
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, std::chars_format::fixed);
  if (result.ec != std::errc() || result.ptr != end) {
    return std::nullopt;
  }
  return number + 0.0;
}

}  // namespace quorvane::text
