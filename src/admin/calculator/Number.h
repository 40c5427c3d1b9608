#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace quorvane::calculator {

/// A decimal number of at most 18 significant digits. Sums, products and quotients are rounded half
/// away from zero to these; binary fractions are not used.
class Number {
 public:
  Number() = default;

  /// Reads a plain number or a written amount: "-12.5", "1,23,456.50", "Rs. 500", "(12)" for minus
  /// 12. nullopt for anything else and for a number that is too large.
  static std::optional<Number> Parse(QStringView text);

  /// At most 15 significant digits and no exponent.
  QString Text() const;

  bool IsZero() const { return digits_ == 0; }
  Number Negated() const;

  /// nullopt when the result has more than 15 digits before its point, and for a division by 0.
  static std::optional<Number> Sum(Number one, Number other);
  static std::optional<Number> Product(Number one, Number other);
  static std::optional<Number> Quotient(Number one, Number other);

 private:
  __extension__ using Wide = __int128;

  static Number Rounded(Wide digits, int exponent, int significant);
  static std::optional<Number> Checked(Wide digits, int exponent);
  Number Widened() const;

  std::int64_t digits_ = 0;  ///< the value is digits_ x 10^exponent_
  int exponent_ = 0;
};

/// The text of a number with the commas that India writes: "12,34,567.5".
QString Grouped(const QString& number);

}  // namespace quorvane::calculator
