#pragma once

#include "core/Progress.h"
#include "core/lookups/Directory.h"
#include "reporting/document/ReportDocument.h"
#include "reports/profit/ProfitStatement.h"

#include <QString>

#include <span>
#include <string>

namespace quorvane::profit {

/// "Scriptwise Profitability Statement" or "Capital Gain Statement".
enum class StatementMode : std::uint8_t { kProfit, kCapitalGain };

/// Detail lists purchases beside sales, account by account; summary has a line a sale.
enum class Layout : std::uint8_t { kDetail, kSummary };

/// The choices that decide what the statement lists and at what cost, as users see them; empty when
/// everything is listed, lot by lot and without charges.
QStringList ChoicesOf(const ProfitQuery& query);

/// One client's statement as a document, from the rows of BuildStatement.
reporting::ReportDocument MakeProfitDocument(StatementMode mode, Layout layout,
                                             const ProfitQuery& query, ClientId client,
                                             std::span<const StatementRow> rows,
                                             const lookups::Directory& directory);

/// The statement for machines. Rates and quantities as plain numbers, money with two decimals,
/// what does not apply to a row empty. A row is of kind match, unmatched, transfer, unsold, total
/// or net_total; a total is the sum of the rows above it, column by column.
void AppendStatementCsvHeader(std::string& out);
void AppendStatementCsv(std::string& out, std::span<const StatementRow> rows,
                        const lookups::Directory& directory);

/// File name of the template with a sheet for either layout.
inline constexpr char kStatementTemplate[] = "ProfitGainRpt.xlsx";

/// Fills the template with the statement of MakeProfitDocument and writes it to `path`, whole or
/// not at all; the sheet of the other layout is taken out. Throws std::runtime_error or
/// Cancellation.
void WriteStatementWorkbook(const reporting::ReportDocument& document, Layout layout,
                            const QString& template_path, const QString& path, Progress& progress);

}  // namespace quorvane::profit
