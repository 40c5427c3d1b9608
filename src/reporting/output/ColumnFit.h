#pragma once

#include "core/Progress.h"
#include "reporting/output/PageLayout.h"

namespace quorvane::reporting {

/// Chooses page and type size by the contents and gives every column its place; fills all of the
/// layout but its pages.
void FitColumns(const ReportDocument& document, Typesetter& typesetter, Progress& progress,
                PageLayout& layout);

}  // namespace quorvane::reporting
