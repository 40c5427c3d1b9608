#include "core/text/FinancialYear.h"

#include <algorithm>
#include <cstddef>

namespace quorvane::text {
namespace {

constexpr std::size_t kLength = 7;
constexpr std::size_t kDash = 4;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int Number(std::string_view digits) {
  int number = 0;
  for (const char digit : digits) {
    number = number * 10 + (digit - '0');
  }
  return number;
}

Date DayOf(int year, unsigned month, unsigned day) {
  return std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
}

}  // namespace

std::optional<FinancialYear> FinancialYear::Parse(std::string_view text) {
  if (text.size() != kLength || text[kDash] != '-' || std::ranges::count_if(text, IsDigit) != 6) {
    return std::nullopt;
  }
  const int first = Number(text.substr(0, kDash));
  const int second = Number(text.substr(kDash + 1));
  const bool follows = first > 0 && (first + 1) % 100 == second;
  return follows ? std::optional(FinancialYear(first)) : std::nullopt;
}

std::optional<FinancialYear> FinancialYear::Parse(const QString& text) {
  return Parse(std::string_view(text.toStdString()));
}

FinancialYear FinancialYear::Of(Date date) {
  const std::chrono::year_month_day day(date);
  const int year = static_cast<int>(day.year());
  return FinancialYear(day.month() >= std::chrono::April ? year : year - 1);
}

QString FinancialYear::Text() const {
  return QString::fromStdString(Utf8());
}

std::string FinancialYear::Utf8() const {
  std::string text = std::to_string(first_year_);
  text.insert(0, text.size() < kDash ? kDash - text.size() : 0, '0');
  const int second = (first_year_ + 1) % 100;
  text += '-';
  text += static_cast<char>('0' + second / 10);
  text += static_cast<char>('0' + second % 10);
  return text;
}

Date FinancialYear::FirstDay() const {
  return DayOf(first_year_, 4, 1);
}
Date FinancialYear::LastDay() const {
  return DayOf(first_year_ + 1, 3, 31);
}

}  // namespace quorvane::text
