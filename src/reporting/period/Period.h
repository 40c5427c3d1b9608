#pragma once

#include "core/Result.h"
#include "core/text/FinancialYear.h"

#include <QStringList>

#include <optional>

namespace quorvane::reporting {

/// The days that a report covers, both included.
struct Period {
  text::Date from;
  text::Date to;

  auto operator<=>(const Period&) const = default;

  /// The whole of a financial year.
  static Period Of(text::FinancialYear year) { return {year.FirstDay(), year.LastDay()}; }
};

/// The period that the two boxes hold ("dd/mm/yyyy"), or the first rule that it breaks: "Enter From
/// Date.", "Enter To Date.", "Enter Proper Date.", "From Date Can't be Greater than To Date."
Result<Period> ReadPeriod(const QString& from, const QString& to);

/// Refuses days outside the financial year whose documents a report reads: the report's heading
/// would name them, but their documents would be missing.
MaybeRefusal RefuseOutside(const Period& period, text::FinancialYear year);

/// "Period - From 01/04/2011 To 31/03/2012".
QString PeriodLine(const Period& period);

/// The months of a financial year in their order, "April" to "March".
const QStringList& MonthNames();

/// The number of a month in the calendar (1 to 12) by its name, without regard to capitals; 0 for
/// another text.
int MonthNumber(const QString& name);

/// The first to the last day of a month of the financial year: April to December are in its first
/// calendar year, January to March in its second. Refused for a number that is no month's: "Month
/// is not between in Financial year Period.Pls Fill Correct".
Result<Period> MonthPeriod(text::FinancialYear year, int month_number);

}  // namespace quorvane::reporting
