#pragma once

#include "core/text/Shares.h"
#include "portfolio/FileLayouts.h"

#include <compare>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane::portfolio {

/// Where a portfolio folder breaks a rule, and what was expected there. `line` counts from 1 with
/// the header; `column` is empty when the whole line or file is meant.
struct ImportError {
  std::string file;
  std::size_t line = 0;
  std::string column;
  std::string message;
  std::optional<text::Shares> available = {};  ///< of a sale that there are too few shares for

  /// "bills.csv, line 12, column quantity: expected a number above 0, found \"x\"".
  std::string Text() const;
};

/// A value as an error quotes it: in quotes, at most kLongestQuote letters of it.
std::string Quoted(std::string_view value);
inline constexpr std::size_t kLongestQuote = 80;

/// Errors are collected, up to kMost, so that a user can correct a whole file at once.
/// Those of one kind, the same fault of one column, are listed kMostOfAKind times and then counted.
class ErrorList {
 public:
  static constexpr std::size_t kMost = 100;
  static constexpr std::size_t kMostOfAKind = 20;

  ErrorList() = default;

  /// With other limits, for work that goes on after the errors.
  ErrorList(std::size_t most, std::size_t most_of_a_kind)
      : most_(most), most_of_a_kind_(most_of_a_kind) {}

  void Add(std::string_view file, std::size_t line, std::string_view column, std::string message);
  void Add(FileKind file, std::size_t line, std::string_view column, std::string message) {
    Add(LayoutOf(file).name, line, column, std::move(message));
  }
  bool Empty() const { return errors_.empty(); }
  bool Full() const { return errors_.size() >= most_; }

  /// A sale of more shares than there are.
  void AddShortage(std::size_t line, std::string_view column, text::Shares available);

  /// In the order in which they were added, then how many more there are of a kind.
  std::vector<ImportError> Take();
  const std::vector<ImportError>& Errors() const { return errors_; }

 private:
  struct Kind {
    std::string file;
    std::string column;
    std::string fault;  ///< the message without what was found

    auto operator<=>(const Kind&) const = default;
  };

  std::size_t most_ = kMost;
  std::size_t most_of_a_kind_ = kMostOfAKind;
  std::vector<ImportError> errors_;
  std::map<Kind, std::size_t> kinds_;  ///< how many there are of each
};

}  // namespace quorvane::portfolio
