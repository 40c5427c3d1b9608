#pragma once

#include "core/records/Bill.h"
#include "core/text/Dates.h"

#include <optional>
#include <string>
#include <string_view>

namespace quorvane::portfolio {

// How brokers write the cells of their files. Texts are UTF-8. Each is a pure function.

/// A heading as headings are compared: letters and digits in small letters, one blank for all that
/// is between them. "Brokerage + Service Tax" is "brokerage service tax".
std::string HeadingWords(std::string_view heading);

/// How a day of numbers alone, such as 5/8/26, is meant when it does not begin with the year.
enum class DayOrder : std::uint8_t { kDayFirst, kMonthFirst };

/// A day and, where it is written, a time of it.
struct Moment {
  text::Date day;
  int seconds = -1;  ///< since midnight; -1 when there is none
};

/// A day in any form that brokers write ("2026-08-27T12:33:59", "27/08/2026", "27-Aug-26",
/// "Aug 27 2026", "27 Aug 2026 00:00:00"), or as the number by which workbooks keep it; nullopt for
/// any other text.
std::optional<Moment> MomentIn(std::string_view text, DayOrder order);

/// A time of day ("12:33:59", "09:49:14 AM"), in seconds since midnight; nullopt for other texts.
std::optional<int> TimeIn(std::string_view text);

/// A number with or without grouping commas and a sign of rupees; in brackets it is below 0.
/// nullopt for an empty cell and any other text.
std::optional<double> NumberIn(std::string_view text);

/// "buy", "B", "Sell Trade"; nullopt for other texts.
std::optional<records::Side> SideIn(std::string_view text);

/// "NSE" or "BSE" for what names one of them ("NSE_EQ"); otherwise the text in capitals.
std::string ExchangeIn(std::string_view text);

/// Whether a segment is of futures, options, commodities or currencies.
bool IsDerivative(std::string_view segment);

/// Whether shares of a series are delivered trade by trade, also when they were bought and sold on
/// one day.
bool IsTradeForTrade(std::string_view series, std::string_view exchange);

/// A trade's or an order's number without what keeps workbooks from reading it as a number; empty
/// for 0 and for one whose digits a workbook has lost ("1.3E+15").
std::string NumberWord(std::string_view text);

}  // namespace quorvane::portfolio
