#pragma once

#include "core/rates/PriceFile.h"

#include <string_view>

namespace quorvane::rates {

/// Adds the scrips on one page of gainers or losers, whose tables are "grd1" and "grd2", with
/// their prices; a scrip that is there already stays as it is. Columns are told by their headings:
/// a code, a name, and the last price. False when the page has no such table. Never throws.
bool AddMovers(std::string_view html, PriceFile& file);

}  // namespace quorvane::rates
