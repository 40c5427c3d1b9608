#include "admin/calculator/Number.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace quorvane::calculator {
namespace {

constexpr int kSignificant = 18;
constexpr int kShown = 15;
constexpr int kSmallestExponent = -30;

__extension__ using Wide = __int128;

Wide Power(int exponent) {
  Wide power = 1;
  for (; exponent > 0; --exponent) {
    power *= 10;
  }
  return power;
}

int CountDigits(Wide digits) {
  int count = 0;
  for (; digits != 0; digits /= 10) {
    ++count;
  }
  return count;
}

Wide DividedRounding(Wide digits, Wide by) {
  const Wide half = digits < 0 ? -(by / 2) : by / 2;
  return (digits + half) / by;
}

/// The number in a written amount: without currency and commas, "(12)" as "-12".
QString Bare(QStringView text) {
  QString bare = text.trimmed().toString();
  const bool in_brackets = bare.startsWith(QLatin1Char('(')) && bare.endsWith(QLatin1Char(')'));
  if (in_brackets) {
    bare = bare.sliced(1, bare.size() - 2).trimmed();
  }
  for (const QString& currency :
       {QStringLiteral("Rs."), QStringLiteral("Rs"), QStringLiteral("₹"), QStringLiteral("INR")}) {
    if (bare.startsWith(currency, Qt::CaseInsensitive)) {
      bare = bare.sliced(currency.size()).trimmed();
      break;
    }
  }
  bare.remove(QLatin1Char(','));
  return in_brackets ? QLatin1Char('-') + bare : bare;
}

}  // namespace

std::optional<Number> Number::Parse(QStringView text) {
  const QString bare = Bare(text);
  const bool has_sign = bare.startsWith(QLatin1Char('-')) || bare.startsWith(QLatin1Char('+'));
  Wide digits = 0;
  int exponent = 0;
  bool has_digit = false;
  bool after_point = false;
  for (const QChar letter : QStringView(bare).sliced(has_sign ? 1 : 0)) {
    if (letter == QLatin1Char('.') && !after_point) {
      after_point = true;
      continue;
    }
    if (letter < QLatin1Char('0') || letter > QLatin1Char('9')) {
      return std::nullopt;
    }
    has_digit = true;
    const bool kept = CountDigits(digits) <= kSignificant;
    digits = kept ? digits * 10 + (letter.unicode() - u'0') : digits;
    exponent += (kept ? 0 : 1) - (after_point ? 1 : 0);
  }
  if (!has_digit) {
    return std::nullopt;
  }
  return Checked(bare.startsWith(QLatin1Char('-')) ? -digits : digits, exponent);
}

Number Number::Rounded(Wide digits, int exponent, int significant) {
  const int excess =
      std::max(CountDigits(digits) - significant, digits == 0 ? 0 : kSmallestExponent - exponent);
  if (excess > kSignificant * 2) {
    return Number();
  }
  if (excess > 0) {
    digits = DividedRounding(digits, Power(excess));
    exponent += excess;
  }
  while (digits != 0 && digits % 10 == 0) {
    digits /= 10;
    ++exponent;
  }
  Number number;
  number.digits_ = static_cast<std::int64_t>(digits);
  number.exponent_ = digits == 0 ? 0 : exponent;
  return number;
}

std::optional<Number> Number::Checked(Wide digits, int exponent) {
  const Number number = Rounded(digits, exponent, kSignificant);
  const bool fits = CountDigits(number.digits_) + number.exponent_ <= kShown;
  return number.IsZero() || fits ? std::optional(number) : std::nullopt;
}

Number Number::Negated() const {
  Number number = *this;
  number.digits_ = -digits_;
  return number;
}

/// The same value with all the digits that there is room for.
Number Number::Widened() const {
  Number number = *this;
  for (int count = CountDigits(digits_); digits_ != 0 && count < kSignificant; ++count) {
    number.digits_ *= 10;
    --number.exponent_;
  }
  return number;
}

std::optional<Number> Number::Sum(Number one, Number other) {
  if (one.IsZero() || other.IsZero()) {
    return one.IsZero() ? other : one;
  }
  one = one.Widened();
  other = other.Widened();
  if (one.exponent_ < other.exponent_) {
    std::swap(one, other);
  }
  const int apart = one.exponent_ - other.exponent_;
  if (apart > kSignificant) {
    return Checked(one.digits_, one.exponent_);
  }
  return Checked(Wide{one.digits_} * Power(apart) + other.digits_, other.exponent_);
}

std::optional<Number> Number::Product(Number one, Number other) {
  return Checked(Wide{one.digits_} * other.digits_, one.exponent_ + other.exponent_);
}

std::optional<Number> Number::Quotient(Number one, Number other) {
  if (other.IsZero()) {
    return std::nullopt;
  }
  // One digit more than is kept, so that the last one is rounded right.
  constexpr int kMore = kSignificant + 1;
  one = one.Widened();
  return Checked(Wide{one.digits_} * Power(kMore) / other.digits_,
                 one.exponent_ - kMore - other.exponent_);
}

QString Number::Text() const {
  const Number shown = Rounded(digits_, exponent_, kShown);
  QString text = QString::number(std::abs(shown.digits_));
  if (shown.exponent_ >= 0) {
    text += QString(shown.exponent_, QLatin1Char('0'));
  } else {
    const int decimals = -shown.exponent_;
    text = text.rightJustified(decimals + 1, QLatin1Char('0'));
    text.insert(text.size() - decimals, QLatin1Char('.'));
  }
  return shown.digits_ < 0 ? QLatin1Char('-') + text : text;
}

QString Grouped(const QString& number) {
  const qsizetype point = number.indexOf(QLatin1Char('.'));
  QString text = number;
  const qsizetype first = number.startsWith(QLatin1Char('-')) ? 1 : 0;
  qsizetype at = (point < 0 ? number.size() : point) - 3;
  for (; at > first; at -= 2) {
    text.insert(at, QLatin1Char(','));
  }
  return text;
}

}  // namespace quorvane::calculator
