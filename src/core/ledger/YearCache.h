#pragma once

#include "core/text/FinancialYear.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace quorvane::ledger {

/// Reads the year texts of a long run of rows, nearly all of which are equal.
class YearCache {
 public:
  /// Throws std::runtime_error when the text is no financial year.
  text::FinancialYear Read(std::string_view text) {
    if (text != text_) {
      const auto year = text::FinancialYear::Parse(text);
      if (!year) {
        throw std::runtime_error("\"" + std::string(text) +
                                 "\" stands in the database as a financial year");
      }
      year_ = *year;
      text_ = text;
    }
    return year_;
  }

 private:
  std::string text_;
  text::FinancialYear year_{0};
};

}  // namespace quorvane::ledger
