#pragma once

#include "core/text/Dates.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <variant>
#include <vector>

namespace quorvane::report {

/// How a number or a date of a column is written.
enum class Mask : std::uint8_t {
  kText,
  kDate,     ///< dd/mm/yyyy
  kAmount,   ///< ###0.00
  kSummary,  ///< ##0.00
  kPercent,  ///< ###0.000
  kNumber    ///< plain: counters, quantities without trailing zeros
};

enum class Alignment : std::uint8_t { kLeft, kRight };

/// An empty cell, a text, a number or a date.
using Cell = std::variant<std::monostate, QString, double, text::Date>;

struct Column {
  QString heading;
  Mask mask = Mask::kText;
  Alignment alignment = Alignment::kLeft;
};

/// A heading over `columns` neighbouring columns; an empty one leaves them without.
struct ColumnGroup {
  QString heading;
  std::size_t columns = 1;
};

enum class RowKind : std::uint8_t {
  kGroup,  ///< one text over the whole width
  kData,
  kTotal,    ///< total of a group
  kNetTotal  ///< total of the table
};

struct Row {
  RowKind kind = RowKind::kData;
  std::vector<Cell> cells;
};

struct Table {
  std::vector<ColumnGroup> groups;
  std::vector<Column> columns;
  std::vector<Row> rows;
};

/// A finished report: everything that is shown, and nothing about how. Screen, paper and every file
/// format are written from it, so that they cannot differ.
struct ReportDocument {
  QStringList titles;
  std::vector<Table> tables;
};

/// A cell as it is shown in a column.
QString CellText(const Cell& cell, Mask mask);

}  // namespace quorvane::report
