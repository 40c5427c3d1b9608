#include "reporting/document/ReportBuilder.h"

#include <stdexcept>

namespace quorvane::reporting {
namespace {

Cell CellOf(const QVariant& value) {
  if (!value.isValid() || value.isNull()) {
    return {};
  }
  if (value.typeId() != QMetaType::QString) {
    return value.toDouble();
  }
  if (const auto date = text::ParseDmy(value.toString())) {
    return *date;
  }
  return value.toString();
}

std::vector<ColumnGroup> GroupsOf(const QStringList& headings) {
  std::vector<ColumnGroup> groups;
  for (const QString& heading : headings) {
    if (!groups.empty() && groups.back().heading == heading) {
      ++groups.back().columns;
    } else {
      groups.push_back({heading, 1});
    }
  }
  return groups;
}

template <class Values, class Set>
void ForEachColumn(std::vector<Column>& columns, const Values& values, const Set& set) {
  const auto count = std::min(columns.size(), static_cast<std::size_t>(values.size()));
  for (std::size_t i = 0; i < count; ++i) {
    set(columns[i], values[static_cast<decltype(values.size())>(i)]);
  }
}

}  // namespace

void ReportBuilder::NewReport(Orientation orientation) {
  document_ = {};
  document_.orientation = orientation;
}

void ReportBuilder::CreateTable(const QString& columns, bool ruled) {
  const auto count = static_cast<std::size_t>(columns.size());
  if (ruled || document_.tables.empty() || Current().columns.size() != count) {
    document_.tables.emplace_back().columns.resize(count);
  }
}

Table& ReportBuilder::Current() {
  if (document_.tables.empty()) {
    throw std::invalid_argument("no table of the report is open");
  }
  return document_.tables.back();
}

void ReportBuilder::Write(std::span<const QVariant> cells, std::span<const std::int16_t> alignments,
                          std::span<const std::int32_t> widths, const QStringList& headings,
                          const QStringList& groups, bool total, const QString& amounts) {
  Table& table = Current();
  const std::size_t count = table.columns.size();
  if (count == 0 || cells.size() % count != 0) {
    throw std::invalid_argument("a line of the report is not whole");
  }
  ForEachColumn(table.columns, alignments, [](Column& column, std::int16_t alignment) {
    column.alignment = alignment == 1   ? Alignment::kRight
                       : alignment == 2 ? Alignment::kCentre
                                        : Alignment::kLeft;
  });
  ForEachColumn(table.columns, widths,
                [](Column& column, std::int32_t width) { column.weight = width; });
  ForEachColumn(table.columns, headings,
                [](Column& column, const QString& heading) { column.heading = heading; });
  ForEachColumn(table.columns, amounts, [](Column& column, QChar flag) {
    column.mask = flag == QLatin1Char('1') ? Mask::kAmount : Mask::kNumber;
  });
  if (!groups.isEmpty()) {
    table.groups = GroupsOf(groups);
  }
  for (std::size_t at = 0; at < cells.size(); at += count) {
    Row& row = table.rows.emplace_back();
    row.kind = total ? RowKind::kTotal : RowKind::kData;
    for (const QVariant& value : cells.subspan(at, count)) {
      row.cells.push_back(CellOf(value));
    }
  }
}

void ReportBuilder::AddTitle(const QString& title) {
  if (!title.isEmpty() && !document_.titles.contains(title)) {
    document_.titles.append(title);
  }
}

void ReportBuilder::AddTableTitle(const QString& title) {
  if (!title.isEmpty() && !Current().titles.contains(title)) {
    Current().titles.append(title);
  }
}

}  // namespace quorvane::reporting
