#pragma once

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

}  // namespace quorvane::reporting
