#pragma once

#include "core/lookups/Directory.h"
#include "reporting/document/ReportDocument.h"
#include "reports/tax/Members.h"

#include <span>
#include <string>
#include <vector>

namespace quorvane::tax_year {

/// The tax year of a client: the sums by section with set-off, exemption and tax, the advance-tax
/// windows, the losses, the sales by section, and as notes what stands before filing.
reporting::ReportDocument MakeTaxDocument(const tax::Rules& rules, const ClientTax& tax,
                                          std::span<const Point> points,
                                          const lookups::Directory& directory);

/// A family on one page: a row a member. Nothing is pooled, for everyone is taxed alone.
reporting::ReportDocument MakeFamilyDocument(const tax::Rules& rules,
                                             std::span<const Member> members,
                                             const lookups::Directory& directory);

/// For machines; the columns are in the header.
void AppendTaxCsvHeader(std::string& out);
void AppendTaxCsv(std::string& out, const ClientTax& tax, const lookups::Directory& directory);

}  // namespace quorvane::tax_year
