#include "reporting/document/ReportDocument.h"

#include <algorithm>
#include <numeric>

namespace quorvane::reporting {
namespace {

constexpr int kPortraitLetters = 95;
constexpr int kGap = 2;

void AppendText(std::string& out, const QString& text) {
  const QByteArray utf8 = text.toUtf8();
  out.append(utf8.constData(), static_cast<std::size_t>(utf8.size()));
}

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

Column TextColumn(const QString& heading) {
  return {.heading = heading};
}
Column DateColumn(const QString& heading) {
  return {.heading = heading, .mask = Mask::kDate};
}
Column NumberColumn(const QString& heading) {
  return {.heading = heading, .mask = Mask::kNumber};
}
Column QuantityColumn(const QString& heading) {
  return {.heading = heading, .mask = Mask::kQuantity};
}
Column AmountColumn(const QString& heading, Mask mask) {
  return {.heading = heading, .mask = mask};
}

void AppendCell(std::string& out, const Cell& cell, Mask mask) {
  if (const auto* shown = std::get_if<QString>(&cell)) {
    AppendText(out, *shown);
  } else if (const auto* number = std::get_if<double>(&cell)) {
    table::AppendNumber(out, *number, mask);
  } else if (const auto* date = std::get_if<text::Date>(&cell)) {
    text::AppendDmy(out, *date);
  }
}

QString CellText(const Cell& cell, Mask mask) {
  if (const auto* shown = std::get_if<QString>(&cell)) {
    return *shown;
  }
  std::string text;
  AppendCell(text, cell, mask);
  return QString::fromStdString(text);
}

QString GroupText(const Row& row) {
  return row.cells.empty() ? QString() : CellText(row.cells.front(), Mask::kText);
}

bool SharesHeadings(const ReportDocument& document) {
  const std::vector<Table>& tables = document.tables;
  return tables.size() > 1 && std::ranges::all_of(tables, [&](const Table& table) {
           return table.columns == tables.front().columns && table.groups == tables.front().groups;
         });
}

std::int64_t RowCount(const ReportDocument& document) {
  std::int64_t rows = 0;
  for (const Table& table : document.tables) {
    rows += static_cast<std::int64_t>(table.rows.size());
  }
  return rows;
}

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
  return document.may_lie && letters > kPortraitLetters;
}

}  // namespace quorvane::reporting
