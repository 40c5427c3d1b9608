#pragma once

#include "core/lookups/Directory.h"
#include "reports/profit/ProfitStatement.h"

#include <span>
#include <string>

namespace quorvane::profit {

/// The statement for machines. Rates and quantities as plain numbers, money with two decimals,
/// what does not apply to a row empty. A row is of kind match, unmatched, transfer, unsold, total
/// or net_total; a total is the sum of the rows above it, column by column.
void AppendStatementCsvHeader(std::string& out);
void AppendStatementCsv(std::string& out, std::span<const StatementRow> rows,
                        const lookups::Directory& directory);

}  // namespace quorvane::profit
