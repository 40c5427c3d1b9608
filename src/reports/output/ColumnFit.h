#pragma once

#include "core/Progress.h"
#include "reports/output/PageLayout.h"

namespace quorvane::report {

/// Chooses page and type size by the contents and gives every column its place; fills all of the
/// layout but its pages.
void FitColumns(const ReportDocument& document, Typesetter& typesetter, Progress& progress,
                PageLayout& layout);

}  // namespace quorvane::report
