#pragma once

#include "core/Refusal.h"
#include "core/text/FinancialYear.h"
#include "reporting/period/Period.h"

#include <QStringList>

#include <variant>

namespace quorvane::reporting {

/// The months of a financial year in their order, "April" to "March".
const QStringList& MonthNames();

/// The number of a month in the calendar (1 to 12) by its name, without regard to capitals; 0 for
/// another text.
int MonthNumber(const QString& name);

/// The first to the last day of a month of the financial year: April to December lie in its first
/// calendar year, January to March in its second. Refused for a number that is no month's: "Month
/// is not between in Financial year Period.Pls Fill Correct".
std::variant<Period, Refusal> MonthPeriod(text::FinancialYear year, int month_number);

}  // namespace quorvane::reporting
