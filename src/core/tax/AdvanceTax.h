#pragma once

#include "core/text/Dates.h"
#include "core/text/FinancialYear.h"

#include <QString>

#include <optional>
#include <vector>

namespace quorvane::tax {

/// A part of a financial year at whose end advance tax is due; a return asks for income by these.
struct AdvanceTaxWindow {
  text::Date first_day;
  text::Date last_day;

  bool Contains(text::Date day) const { return first_day <= day && day <= last_day; }
};

/// The windows of a year, in order, from the shipped file "tax/advance-tax-windows.csv" in the data
/// folder; empty for a year that it does not know, and when there is no such file. Throws
/// files::TableError for a broken one.
std::vector<AdvanceTaxWindow> AdvanceTaxWindows(const QString& data_folder,
                                                text::FinancialYear year);

}  // namespace quorvane::tax
