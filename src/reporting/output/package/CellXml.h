#pragma once

#include "reporting/document/ReportDocument.h"

#include <string>
#include <string_view>
#include <vector>

namespace quorvane::reporting {

/// Which cell styles of a workbook show a number as a date.
class DateStyles {
 public:
  DateStyles() = default;

  /// From the text of the workbook's styles. Throws std::runtime_error when it cannot be read.
  explicit DateStyles(const std::string& styles_xml);

  /// By the number that a cell's `s` attribute holds.
  bool IsDate(int style) const {
    return style >= 0 && static_cast<std::size_t>(style) < dates_.size() &&
           dates_[static_cast<std::size_t>(style)];
  }

 private:
  std::vector<bool> dates_;
};

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
