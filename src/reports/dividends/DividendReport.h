#pragma once

#include "core/ClientYear.h"
#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/records/Dividend.h"
#include "core/tax/AdvanceTax.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/period/Period.h"

#include <QString>

#include <span>
#include <vector>

namespace quorvane::dividends {

struct DividendQuery {
  ClientYear of;
  reporting::Period period;
};

/// The dividends of a client within the period, by date, scrip and account, each with its tax
/// deducted at source and what was received; then the sums of the advance-tax windows of the year,
/// when these are known. One query a table.
reporting::ReportDocument MakeDividendReport(database::Connection& connection,
                                             const DividendQuery& query,
                                             std::span<const tax::AdvanceTaxWindow> windows);

}  // namespace quorvane::dividends
