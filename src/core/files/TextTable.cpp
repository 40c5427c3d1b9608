#include "core/files/TextTable.h"

#include "core/text/Tr.h"

#include <algorithm>
#include <utility>

namespace quorvane::files {
namespace {

constexpr std::string_view kNoBreakBlank = "\xC2\xA0";

[[noreturn]] void TooLarge() {
  Fail(Tr("Files", "The file holds more than can be read."));
}

bool IsBlank(char one) {
  return one == ' ' || one == '\t' || one == '\r' || one == '\n' || one == '\0';
}

}  // namespace

void Fail(const QString& why) {
  throw TableError(why.toStdString());
}

std::string_view Trimmed(std::string_view utf8) {
  while (!utf8.empty()) {
    if (IsBlank(utf8.front())) {
      utf8.remove_prefix(1);
    } else if (IsBlank(utf8.back())) {
      utf8.remove_suffix(1);
    } else if (utf8.starts_with(kNoBreakBlank)) {
      utf8.remove_prefix(kNoBreakBlank.size());
    } else if (utf8.ends_with(kNoBreakBlank)) {
      utf8.remove_suffix(kNoBreakBlank.size());
    } else {
      break;
    }
  }
  return utf8;
}

void TableBuilder::Put(std::size_t row, std::size_t column, std::string_view utf8) {
  const std::string_view text = Trimmed(utf8);
  if (text.empty()) {
    return;
  }
  text_ += text.size();
  if (row >= kMostRows || column >= kMostColumns || text.size() > kLongestCell ||
      text_ > kMostText) {
    TooLarge();
  }
  if (row >= rows_.size()) {
    rows_.resize(row + 1);
  }
  TextRow& target = rows_[row];
  target.line = row + 1;
  if (column >= target.cells.size()) {
    cells_ += column + 1 - target.cells.size();
    if (cells_ > kMostCells) {
      TooLarge();
    }
    target.cells.resize(column + 1);
  }
  target.cells[column] = text;
}

TextTable TableBuilder::Take() {
  std::erase_if(rows_, [](const TextRow& row) { return row.cells.empty(); });
  cells_ = 0;
  text_ = 0;
  return {std::exchange(rows_, {})};
}

}  // namespace quorvane::files
