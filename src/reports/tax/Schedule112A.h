#pragma once

#include "core/Result.h"
#include "core/lookups/Directory.h"
#include "core/rates/IsinBook.h"
#include "reports/tax/TaxYear.h"

#include <map>
#include <string>
#include <vector>

namespace quorvane::tax_year {

using ScripIsins = std::map<ScripId, std::vector<rates::DatedIsin>>;

/// The ISIN that a scrip had on a day; empty when none is known.
QString IsinOn(const ScripIsins& isins, ScripId scrip, Date day);

/// The upload file of schedule 112A, in the layout of the year: long-term gains with STT. Shares
/// acquired before 1-Feb-2018 have a row a sale, because their cost is worked out sale by sale; the
/// others a row a scrip, or one row for all. Refused for a year without an upload file, and when
/// nothing falls under the section.
Result<std::string> MakeSchedule112A(const tax::Rules& rules, const TaxYear& year,
                                     const lookups::Directory& directory, const ScripIsins& isins);

}  // namespace quorvane::tax_year
