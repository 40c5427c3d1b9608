#include "reporting/output/LetterWidths.h"

#include <algorithm>
#include <numeric>

namespace quorvane::reporting {
namespace {

constexpr int kPortraitLetters = 95;
constexpr int kGap = 2;

int Letters(const std::string& utf8) {
  return static_cast<int>(std::ranges::count_if(
      utf8, [](char c) { return (static_cast<unsigned char>(c) >> 6) != 2; }));
}

void WidenForGroups(const Table& table, std::vector<int>& widths) {
  std::size_t first = 0;
  for (const ColumnGroup& group : table.groups) {
    const std::size_t end = std::min(first + group.columns, widths.size());
    if (end > first) {
      const auto begin = widths.begin() + static_cast<std::ptrdiff_t>(first);
      const int has = std::accumulate(begin, widths.begin() + static_cast<std::ptrdiff_t>(end), 0);
      widths[end - 1] += std::max(0, static_cast<int>(group.heading.size()) - has);
    }
    first = end;
  }
}

}  // namespace

std::vector<int> LetterWidths(const Table& table) {
  std::vector<int> widths;
  for (const Column& column : table.columns) {
    widths.push_back(static_cast<int>(column.heading.size()));
  }
  std::string text;
  for (const Row& row : table.rows) {
    const bool whole_width = row.kind == RowKind::kGroup || row.kind == RowKind::kGap;
    const std::size_t count = whole_width ? 0 : std::min(row.cells.size(), widths.size());
    for (std::size_t i = 0; i < count; ++i) {
      text.clear();
      AppendCell(text, row.cells[i], table.columns[i].mask);
      widths[i] = std::max(widths[i], Letters(text));
    }
  }
  WidenForGroups(table, widths);
  return widths;
}

bool IsWide(const ReportDocument& document, const std::vector<int>& widths) {
  const int letters =
      std::accumulate(widths.begin(), widths.end(), kGap * static_cast<int>(widths.size()));
  return document.orientation == Orientation::kLandscape ||
         (document.orientation == Orientation::kByWidth && letters > kPortraitLetters);
}

}  // namespace quorvane::reporting
