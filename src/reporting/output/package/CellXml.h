#pragma once

#include "reporting/document/ReportDocument.h"
#include "reporting/output/package/DateStyles.h"

#include <string>

namespace quorvane::reporting {

/// What a cell element of a sheet holds: its `t` attribute and its content, in which every element
/// name begins with the sheet's prefix.
struct CellXml {
  std::string type;
  std::string content;
};

/// Numbers as numbers, texts as they are, dates as numbers where the style shows dates, else as
/// dd/mm/yyyy.
CellXml MakeCellXml(const Cell& cell, const DateStyles& styles, int style,
                    const std::string& prefix);

}  // namespace quorvane::reporting
