#pragma once

#include "reporting/document/ReportDocument.h"

#include <string>

namespace quorvane::reporting {

/// The report as plain text in columns, for a terminal or a text file: UTF-8, lines ended by LF.
std::string WriteText(const ReportDocument& document);

}  // namespace quorvane::reporting
