#include "core/files/TextTable.h"

#include "core/text/Tr.h"

#include <algorithm>
#include <cctype>
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

const std::string& CellAt(const TextRow& row, int column) {
  static const std::string kNone;
  const auto place = static_cast<std::size_t>(column);
  return column >= 0 && place < row.cells.size() ? row.cells[place] : kNone;
}

std::vector<std::string> HeadingsOf(const TextRow& row) {
  std::vector<std::string> headings;
  for (const std::string& cell : row.cells) {
    std::string& upper = headings.emplace_back(Trimmed(cell));
    std::ranges::transform(upper, upper.begin(),
                           [](unsigned char one) { return static_cast<char>(std::toupper(one)); });
  }
  return headings;
}

bool FindColumns(std::span<const std::string_view> wanted, std::span<const std::string> headings,
                 std::span<int> columns) {
  for (std::size_t field = 0; field < wanted.size(); ++field) {
    std::string_view heading = wanted[field];
    const bool optional = heading.empty() || heading.front() == '?';
    heading.remove_prefix(heading.starts_with('?') ? 1 : 0);
    const auto at = heading.empty() ? headings.end() : std::ranges::find(headings, heading);
    columns[field] = at == headings.end() ? -1 : static_cast<int>(at - headings.begin());
    if (at == headings.end() && !optional) {
      return false;
    }
  }
  return true;
}

}  // namespace quorvane::files
