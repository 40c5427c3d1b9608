#include "portfolio/ImportErrors.h"

#include "core/text/Amounts.h"

#include <fmt/format.h>

#include <algorithm>

namespace quorvane::portfolio {
namespace {

/// Counted in characters of UTF-8, whose continuation bytes begin with the bits 10.
std::string FirstLetters(std::string_view text) {
  std::size_t letters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool begins = (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80;
    if (begins && ++letters > kLongestQuote) {
      return std::string(text.substr(0, i)) + "...";
    }
  }
  return std::string(text);
}

/// What was expected, without what was found and where.
std::string FaultOf(const std::string& message) {
  std::size_t end = message.size();
  for (const char* values : {", found", ", line ", ". "}) {
    end = std::min(end, message.find(values));
  }
  return message.substr(0, end);
}

}  // namespace

std::string Quoted(std::string_view value) {
  return '"' + FirstLetters(value) + '"';
}

std::string ImportError::Text() const {
  std::string text = file;
  if (line > 0) {
    text += fmt::format(", line {}", line);
  }
  if (!column.empty()) {
    text += fmt::format(", column {}", column);
  }
  return text + ": " + message;
}

void ErrorList::Add(std::string_view file, std::size_t line, std::string_view column,
                    std::string message) {
  if (Full()) {
    return;
  }
  Kind kind{std::string(file), FirstLetters(column), FaultOf(message)};
  if (++kinds_[kind] <= most_of_a_kind_) {
    errors_.push_back({std::move(kind.file), line, std::move(kind.column), std::move(message)});
  }
}

void ErrorList::AddShortage(std::size_t line, std::string_view column, text::Shares available) {
  const std::size_t before = errors_.size();
  Add(FileKind::kBills, line, column,
      "You Can't Sale Scripts More than Balance. Maximum Allowed Value is: " +
          text::FormatAmount(available.Number()).toStdString());
  if (errors_.size() > before) {
    errors_.back().available = available;
  }
}

std::vector<ImportError> ErrorList::Take() {
  for (const auto& [kind, count] : kinds_) {
    if (count > most_of_a_kind_) {
      errors_.push_back(
          {kind.file, 0, kind.column,
           fmt::format("{} more such errors: {}", count - most_of_a_kind_, kind.fault)});
    }
  }
  kinds_.clear();
  return std::move(errors_);
}

}  // namespace quorvane::portfolio
