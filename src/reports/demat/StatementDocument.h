#pragma once

#include "core/lookups/Directory.h"
#include "reporting/document/ReportDocument.h"
#include "reports/demat/DematStatement.h"

#include <span>
#include <string>

namespace quorvane::demat {

/// One client's "Demat A/c Statement" as a document, from what BuildStatement hands out: a table an
/// account, the scrips one after the other, each closed by its totals.
reporting::ReportDocument MakeStatementDocument(const StatementQuery& query, ClientId client,
                                                std::span<const ScripMovements> scrips,
                                                const lookups::Directory& directory);

/// The statement for machines: plain quantities, one record a line.
void AppendStatementCsvHeader(std::string& out);
void AppendStatementCsv(std::string& out, std::span<const ScripMovements> scrips,
                        const lookups::Directory& directory);

}  // namespace quorvane::demat
