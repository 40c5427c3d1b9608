#include "portfolio/ImportErrors.h"

#include <fmt/format.h>

namespace quorvane::portfolio {

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
  if (!Full()) {
    errors_.push_back({std::string(file), line, std::string(column), std::move(message)});
  }
}

}  // namespace quorvane::portfolio
