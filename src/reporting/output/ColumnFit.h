#pragma once

#include "core/Progress.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/output/PageLayout.h"

#include <vector>

namespace quorvane::reporting {

/// Chooses page and type size by the contents and gives every column its place; fills all of the
/// layout but its pages.
void FitColumns(const ReportDocument& document, Typesetter& typesetter, Progress& progress,
                PageLayout& layout);

/// How many letters each column of a table needs, its heading and totals included; where the
/// heading of a group needs more than its columns, the last of them gets it.
std::vector<int> LetterWidths(const Table& table);

/// True when tables of these widths are to stand on a page that lies on its side.
bool IsWide(const ReportDocument& document, const std::vector<int>& widths);

}  // namespace quorvane::reporting
