#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::portfolio {

/// Where a portfolio folder breaks a rule, and what was expected there. `line` counts from 1 with
/// the header; `column` is empty when the whole line or file is meant.
struct ImportError {
  std::string file;
  std::size_t line = 0;
  std::string column;
  std::string message;

  /// "bills.csv, line 12, column quantity: expected a number above 0, found \"x\"".
  std::string Text() const;
};

/// Errors are collected so that a user can mend a whole file at once; a hopeless one stops early.
class ErrorList {
 public:
  static constexpr std::size_t kMost = 100;

  void Add(std::string_view file, std::size_t line, std::string_view column, std::string message);
  bool Empty() const { return errors_.empty(); }
  bool Full() const { return errors_.size() >= kMost; }
  std::vector<ImportError> Take() { return std::move(errors_); }
  const std::vector<ImportError>& Errors() const { return errors_; }

 private:
  std::vector<ImportError> errors_;
};

}  // namespace quorvane::portfolio
