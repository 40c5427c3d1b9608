#pragma once

#include "reporting/document/ReportDocument.h"
#include "reports/mis/GroupOrder.h"
#include "reports/mis/ReportForm.h"

namespace quorvane::mis {

/// Arranges holdings in the groups of a report.
///
/// Each group begins with its heading ("GROUP NAME- ATHALEKAR", "Demat A/c No - 10014501", a client
/// or a scrip) and closes with "SubTotal"; a group that holds a single other group is closed by
/// that group's. The table ends with "Total". Every total is the sum of the lines above it that
/// count: money always, shares where all of them are of one scrip. A balance of shares in a total
/// is that at the end of the period.
reporting::Table MakeTable(const MisQuery& query, const ReportForm& form,
                           const std::vector<Holding>& holdings, const Names& names);

}  // namespace quorvane::mis
