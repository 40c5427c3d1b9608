#pragma once

#include "core/tax/Levies.h"
#include "core/text/FinancialYear.h"
#include "masters/lookup_masters/LookupMaster.h"

#include <vector>

namespace quorvane::lookup_masters {

using tax::Levy;

/// The rate of a kind in a financial year: where it changed within the year, the one that held on
/// most days of it.
struct YearLevy {
  text::FinancialYear year;
  Levy levy;
  bool changed = false;  ///< within the year
};

/// By kind and year, from the first year with a rate to `last`.
std::vector<YearLevy> LeviesByYear(const std::vector<Levy>& levies, text::FinancialYear last);

/// The rows that a table of percentages lacks when it has none of the law's rates.
std::vector<LookupRow> RowsOf(LookupKind kind, const std::vector<YearLevy>& levies);

}  // namespace quorvane::lookup_masters
