#pragma once

#include "core/lookups/Directory.h"
#include "reports/profit/ProfitStatement.h"
#include "reports/profit/StatementDocument.h"

#include <span>
#include <string>

namespace quorvane::cli {

enum class OutputFormat { kText, kCsv };

/// One client's statement in a file format.
std::string FormatStatement(OutputFormat format, profit::StatementMode mode, profit::Layout layout,
                            const profit::StatementQuery& query, ClientId client,
                            std::span<const profit::StatementRow> rows,
                            const lookups::Directory& directory);

/// ".txt" or ".csv".
std::string Extension(OutputFormat format);

}  // namespace quorvane::cli
