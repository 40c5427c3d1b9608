#pragma once

#include "core/lookups/Directory.h"
#include "reporting/document/ReportDocument.h"
#include "reports/profit/ProfitStatement.h"

#include <span>

namespace quorvane::profit {

/// "Scriptwise Profitability Statement" or "Capital Gain Statement".
enum class StatementMode : std::uint8_t { kProfit, kCapitalGain };

/// Detail lists purchases beside sales, account by account; summary has a line a sale.
enum class Layout : std::uint8_t { kDetail, kSummary };

/// The choices that decide what the statement lists and costs, as a user reads them; empty when
/// everything is listed, lot by lot and without charges.
QStringList ChoicesOf(const StatementQuery& query);

/// One client's statement as a document, from the rows of BuildStatement.
reporting::ReportDocument MakeStatementDocument(StatementMode mode, Layout layout,
                                                const StatementQuery& query, ClientId client,
                                                std::span<const StatementRow> rows,
                                                const lookups::Directory& directory);

}  // namespace quorvane::profit
