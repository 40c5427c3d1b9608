#pragma once

#include "core/Progress.h"
#include "reporting/document/ReportDocument.h"

#include <QIODevice>

namespace quorvane::reporting {

/// The report laid out on A4 pages: what is previewed, printed and saved. Portrait or landscape by
/// what fits, columns fitted to their contents, headings and a page number on each page, no group
/// heading alone at the end of a page. Texts in any script. Throws std::runtime_error or
/// Cancellation.
void WritePdf(const ReportDocument& document, QIODevice& out, Progress& progress);

}  // namespace quorvane::reporting
