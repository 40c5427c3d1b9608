#pragma once

#include <QString>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane::text {

/// A calendar day. Stored in the database and in files as "dd/mm/yyyy".
using Date = std::chrono::sys_days;

/// Makes a date of a day, month and year (1 to 9999); nullopt when there is no such day.
std::optional<Date> MakeDate(int day, int month, int year);

/// Reads exactly "dd/mm/yyyy" (UTF-8); nullopt for anything else or for a day that does not exist.
/// Fast: used on every row of a large read.
std::optional<Date> ParseDmy(std::string_view text);
std::optional<Date> ParseDmy(const QString& text);

/// Writes "dd/mm/yyyy".
QString FormatDmy(Date date);
void AppendDmy(std::string& out, Date date);

/// Completes a typed date to "dd/mm/yyyy": "." counts as "/", one-digit days and months are padded,
/// a year of fewer than four digits takes the leading digits of `today`'s year and, when that is
/// beyond 2029, is lowered by centuries. nullopt when the text is no date (the user then sees
/// "Enter Proper Date.").
std::optional<QString> CompleteDate(const QString& typed, Date today);

/// True when that year has a 29 February.
bool IsLeapYear(int year);

/// The same day a year later; 29 February becomes 28 February.
Date AddYear(Date date);

/// Today by the computer's clock, in local time.
Date Today();

}  // namespace quorvane::text
