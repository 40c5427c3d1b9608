#pragma once

#include "core/Progress.h"
#include "reporting/document/ReportDocument.h"
#include "reports/profit/StatementDocument.h"

#include <QString>

namespace quorvane::profit {

/// File name of the template with a sheet for either layout.
inline constexpr char kStatementTemplate[] = "ProfitGainRpt.xlsx";

/// Fills the template with the statement of MakeStatementDocument and writes it to `path`, whole or
/// not at all; the sheet of the other layout is taken out. Throws std::runtime_error or
/// Cancellation.
void WriteStatementWorkbook(const reporting::ReportDocument& document, Layout layout,
                            const QString& template_path, const QString& path, Progress& progress);

}  // namespace quorvane::profit
