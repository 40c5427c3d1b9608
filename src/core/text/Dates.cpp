#include "core/text/Dates.h"

#include <QDate>
#include <QStringList>

#include <algorithm>
#include <array>

namespace quorvane::text {
namespace {

constexpr int kFirstYear = 1;
constexpr int kLastYear = 9999;
constexpr int kLastCompletedYear = 2029;
constexpr std::size_t kDmyLength = 10;

using std::chrono::year_month_day;

/// The number in two digits, or -1.
int TwoDigits(const char* at) {
  const unsigned tens = static_cast<unsigned char>(at[0]) - unsigned{'0'};
  const unsigned units = static_cast<unsigned char>(at[1]) - unsigned{'0'};
  return tens > 9 || units > 9 ? -1 : static_cast<int>(tens * 10 + units);
}

void PutTwoDigits(char* at, int value) {
  at[0] = static_cast<char>('0' + value / 10);
  at[1] = static_cast<char>('0' + value % 10);
}

std::array<char, kDmyLength> Dmy(Date date) {
  const year_month_day day(date);
  const int year = std::clamp(static_cast<int>(day.year()), 0, kLastYear);
  std::array<char, kDmyLength> text{};
  PutTwoDigits(text.data(), static_cast<int>(static_cast<unsigned>(day.day())));
  text[2] = '/';
  PutTwoDigits(text.data() + 3, static_cast<int>(static_cast<unsigned>(day.month())));
  text[5] = '/';
  PutTwoDigits(text.data() + 6, year / 100);
  PutTwoDigits(text.data() + 8, year % 100);
  return text;
}

/// The number in a text of one to `longest` ASCII digits.
std::optional<int> DigitsOnly(const QString& text, qsizetype longest) {
  const bool digits =
      std::ranges::all_of(text, [](QChar c) { return c >= QChar('0') && c <= QChar('9'); });
  if (text.isEmpty() || text.size() > longest || !digits) {
    return std::nullopt;
  }
  return text.toInt();
}

int CompleteYear(int typed, qsizetype digits, Date today) {
  int unit = 1;
  for (qsizetype i = 0; i < digits; ++i) {
    unit *= 10;
  }
  const int this_year = static_cast<int>(year_month_day(today).year());
  int year = this_year / unit * unit + typed;
  while (year > kLastCompletedYear) {
    year -= 100;
  }
  return year;
}

}  // namespace

std::optional<Date> MakeDate(int day, int month, int year) {
  const bool in_range =
      day >= 1 && day <= 31 && month >= 1 && month <= 12 && year >= kFirstYear && year <= kLastYear;
  if (!in_range) {
    return std::nullopt;
  }
  const year_month_day date{std::chrono::year(year), std::chrono::month(unsigned(month)),
                            std::chrono::day(unsigned(day))};
  return date.ok() ? std::optional<Date>(date) : std::nullopt;
}

std::optional<Date> ParseDmy(std::string_view text) {
  if (text.size() != kDmyLength || text[2] != '/' || text[5] != '/') {
    return std::nullopt;
  }
  const int century = TwoDigits(text.data() + 6);
  const int year = TwoDigits(text.data() + 8);
  if (century < 0 || year < 0) {
    return std::nullopt;
  }
  return MakeDate(TwoDigits(text.data()), TwoDigits(text.data() + 3), century * 100 + year);
}

std::optional<Date> ParseDmy(const QString& text) {
  if (text.size() != static_cast<qsizetype>(kDmyLength)) {
    return std::nullopt;
  }
  std::array<char, kDmyLength> latin{};
  std::ranges::transform(text, latin.begin(), [](QChar c) { return c.toLatin1(); });
  return ParseDmy(std::string_view(latin.data(), latin.size()));
}

QString FormatDmy(Date date) {
  const auto text = Dmy(date);
  return QString::fromLatin1(text.data(), text.size());
}

void AppendDmy(std::string& out, Date date) {
  const auto text = Dmy(date);
  out.append(text.data(), text.size());
}

std::optional<QString> CompleteDate(const QString& typed, Date today) {
  QString text = typed.trimmed();
  const QStringList parts = text.replace('.', '/').split('/');
  if (parts.size() != 3) {
    return std::nullopt;
  }
  const auto day = DigitsOnly(parts[0], 2);
  const auto month = DigitsOnly(parts[1], 2);
  const auto year = DigitsOnly(parts[2], 4);
  if (!day || !month || !year) {
    return std::nullopt;
  }
  const qsizetype digits = parts[2].size();
  const auto date = MakeDate(*day, *month, digits < 4 ? CompleteYear(*year, digits, today) : *year);
  return date ? std::optional(FormatDmy(*date)) : std::nullopt;
}

bool IsLeapYear(int year) {
  return MakeDate(29, 2, year).has_value();
}

Date AddYear(Date date) {
  const year_month_day next = year_month_day(date) + std::chrono::years(1);
  return next.ok() ? Date(next) : Date(next.year() / next.month() / std::chrono::last);
}

Date Today() {
  constexpr qint64 kJulianDayOfEpoch = 2440588;
  return Date(std::chrono::days(QDate::currentDate().toJulianDay() - kJulianDayOfEpoch));
}

}  // namespace quorvane::text
