#pragma once

#include "core/text/FinancialYear.h"
#include "portfolio/Portfolio.h"

#include <set>

namespace quorvane::portfolio {

/// The years of the folder's opening stock, bills and transfers.
std::set<text::FinancialYear> TouchedYears(const Portfolio& portfolio);

}  // namespace quorvane::portfolio
