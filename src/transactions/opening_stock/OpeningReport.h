#pragma once

#include "core/ClientYear.h"
#include "core/lookups/Directory.h"
#include "reporting/document/ReportDocument.h"
#include "transactions/opening_stock/OpeningStock.h"

#include <span>

namespace quorvane::opening_stock {

/// "Stock Opening Balance": the lots in the order given, with the sum of their totals.
reporting::ReportDocument MakeOpeningReport(std::span<const OpeningLot> lots, const ClientYear& of,
                                            const lookups::Directory& directory);

}  // namespace quorvane::opening_stock
