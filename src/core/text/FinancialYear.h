#pragma once

#include "core/text/Dates.h"

#include <QString>

#include <compare>
#include <optional>
#include <string_view>

namespace quorvane::text {

/// An Indian financial year, 1 April to 31 March, written "2011-12".
class FinancialYear {
 public:
  /// No year: what a record has before it is filled in.
  FinancialYear() = default;
  explicit FinancialYear(int first_calendar_year) : first_year_(first_calendar_year) {}

  /// Reads "2011-12"; nullopt unless the two digits are those of the following year.
  static std::optional<FinancialYear> Parse(std::string_view text);
  static std::optional<FinancialYear> Parse(const QString& text);
  static FinancialYear Of(Date date);

  int FirstCalendarYear() const { return first_year_; }
  QString Text() const;
  std::string Utf8() const;
  Date FirstDay() const;
  Date LastDay() const;
  bool Contains(Date date) const { return FirstDay() <= date && date <= LastDay(); }
  FinancialYear Previous() const { return FinancialYear(first_year_ - 1); }
  FinancialYear Next() const { return FinancialYear(first_year_ + 1); }

  auto operator<=>(const FinancialYear&) const = default;

 private:
  int first_year_ = 0;
};

}  // namespace quorvane::text
