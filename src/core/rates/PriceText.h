#pragma once

#include "core/rates/PriceFile.h"
#include "core/text/Dates.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <string_view>

namespace quorvane::rates {

/// A price in rupees as exchanges write it: "1,23,456.75", with blanks around it; 0 for what is no
/// such number or is not above 0.
double PriceOf(std::string_view text);

/// A day as exchanges write it: 24-Sep-2026, 24-September-26, 24/09/2026, 2026-09-24; nullopt
/// for anything else.
std::optional<text::Date> DayOf(std::string_view text);

/// The closing price in an exchange's price history of one security, in the old layout and in the
/// newer one with blanks at the end of its headings: the number below "Close Price", of the row of
/// that day when rows have a date that can be read. 0 when the text is no such file (a page in its
/// place, no row, a row of other days only). Never throws.
double ClosingPriceIn(const QByteArray& csv, text::Date day);

/// The prices in the titles of the two quote sites' pages: the number after "Rs.", and the one
/// between "INR" and "-". 0 when there is no title or no such number.
double BseQuoteIn(const QByteArray& page);
double NseQuoteIn(const QByteArray& page);

/// Adds the scrips on one page of gainers or losers, whose tables are "grd1" and "grd2", with
/// their prices; a scrip that is there already stays as it is. Columns are told by their headings:
/// a code, a name, and the last price. False when the page has no such table. Never throws.
bool AddMovers(std::string_view html, PriceFile& file);

}  // namespace quorvane::rates
