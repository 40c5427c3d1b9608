#pragma once

#include "core/Progress.h"
#include "reporting/document/ReportDocument.h"

#include <QIODevice>

namespace quorvane::reporting {

/// The report as a workbook of one sheet: numbers and dates as values with their number formats,
/// titles merged and centred over the columns, bold headings and totals, borders, fitted columns,
/// and the sheet set up for printing. Throws std::runtime_error or Cancellation.
void WriteXlsx(const ReportDocument& document, QIODevice& out, Progress& progress);

}  // namespace quorvane::reporting
