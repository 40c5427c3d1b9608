#pragma once

#include "reports/document/ReportDocument.h"

#include <string>

namespace quorvane::report {

/// The report as plain text in columns, for a terminal or a text file: UTF-8, lines ended by LF.
std::string WriteText(const ReportDocument& document);

}  // namespace quorvane::report
