#include "reporting/output/ColumnWidths.h"

#include "reporting/output/PageLayout.h"

#include <algorithm>
#include <numeric>

namespace quorvane::reporting {
namespace {

constexpr int kStepRows = 1000;
constexpr double kWidestText = 24;  // a longer text is broken into lines

}  // namespace

double ColumnMeasurer::LongestWord(const QString& heading) {
  double width = 0;
  for (const QString& word : heading.split(QLatin1Char(' '))) {
    width = std::max(width, typesetter_.Width(word.toStdString(), Face::kBold));
  }
  return width;
}

Widths ColumnMeasurer::Measure(const Table& table) {
  Widths measured;
  MeasureHeadings(table, measured);
  for (const Row& row : table.rows) {
    if (row.kind != RowKind::kGroup && row.kind != RowKind::kGap) {
      MeasureRow(table, row, measured);
    }
    if (++done_ % kStepRows == 0) {
      progress_.Step(done_);
      progress_.ThrowIfCancelled();
    }
  }
  WidenForGroups(table, measured);
  return measured;
}

void ColumnMeasurer::MeasureHeadings(const Table& table, Widths& measured) {
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const Column& column = table.columns[i];
    measured.widths.push_back(LongestWord(column.heading));
    measured.headings.push_back(typesetter_.Width(column.heading.toStdString(), Face::kBold));
    measured.bends.push_back(column.mask == Mask::kText && AlignmentOf(column) == Alignment::kLeft);
    measured.insets += StandsApart(table, i) ? 1 : 0;
  }
}

void ColumnMeasurer::MeasureRow(const Table& table, const Row& row, Widths& measured) {
  const std::size_t count = std::min(row.cells.size(), measured.widths.size());
  for (std::size_t i = 0; i < count; ++i) {
    text_.clear();
    AppendCell(text_, row.cells[i], table.columns[i].mask);
    const double width = typesetter_.Width(text_, FaceOf(row.kind));
    measured.widths[i] =
        std::max(measured.widths[i], measured.bends[i] ? std::min(width, kWidestText) : width);
  }
}

void ColumnMeasurer::WidenForGroups(const Table& table, Widths& measured) {
  std::size_t first = 0;
  for (const ColumnGroup& group : table.groups) {
    const std::size_t end = std::min(first + group.columns, measured.widths.size());
    const auto begin = measured.widths.begin() + static_cast<std::ptrdiff_t>(first);
    const double has =
        std::accumulate(begin, measured.widths.begin() + static_cast<std::ptrdiff_t>(end), 0.0);
    const double missing = LongestWord(group.heading) - has;
    for (std::size_t i = first; i < end && missing > 0; ++i) {
      measured.widths[i] += missing / static_cast<double>(end - first);
    }
    first = end;
  }
}

}  // namespace quorvane::reporting
