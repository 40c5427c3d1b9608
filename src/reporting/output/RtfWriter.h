#pragma once

#include "core/Progress.h"
#include "reporting/document/ReportDocument.h"

#include <string>

namespace quorvane::reporting {

/// The report as rich text with tables, which every word processor opens: A4, page numbers, the
/// headings repeated on each page. Pure ASCII; other letters are written as escapes.
std::string WriteRtf(const ReportDocument& document, Progress& progress);

}  // namespace quorvane::reporting
