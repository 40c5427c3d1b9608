#pragma once

#include "core/table/Columns.h"
#include "core/text/Dates.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace quorvane::reporting {

using table::Alignment;
using table::Column;
using table::Mask;
using table::RowKind;

/// An empty cell, a text, a number or a date.
using Cell = std::variant<std::monostate, QString, double, text::Date>;

/// Columns of the usual kinds: texts and dates are aligned left, numbers right.
Column TextColumn(const QString& heading);
Column DateColumn(const QString& heading);
Column NumberColumn(const QString& heading);
Column QuantityColumn(const QString& heading);
Column AmountColumn(const QString& heading, Mask mask = Mask::kAmount);

/// A heading over `columns` neighbouring columns; an empty one leaves them without.
struct ColumnGroup {
  QString heading;
  std::size_t columns = 1;

  bool operator==(const ColumnGroup&) const = default;
};

using Row = table::Row<Cell>;

struct Table {
  std::vector<ColumnGroup> groups;
  std::vector<Column> columns;
  std::vector<Row> rows;

  /// Lines above the table's headings ("Demat A/c No. 1001"), at its left edge.
  QStringList titles = {};
};

/// A finished report: everything that is shown, and nothing about how. Screen, paper and every file
/// format are written from it, so that they cannot differ. The first title is the report's name.
struct ReportDocument {
  QStringList titles;  ///< centred above everything
  std::vector<Table> tables;
  QStringList notes = {};  ///< lines below everything
  bool may_lie = true;     ///< pages are landscape where the columns need the width
};

/// A cell as it is shown in a column; appended as UTF-8, or as a text of its own.
void AppendCell(std::string& out, const Cell& cell, Mask mask);
QString CellText(const Cell& cell, Mask mask);

/// The one cell of a group row; empty when there is none.
QString GroupText(const Row& row);

/// True when several tables have the same columns and groups: one block of headings serves all.
bool SharesHeadings(const ReportDocument& document);

/// How many rows all tables have together: the length of the work of writing them.
std::int64_t RowCount(const ReportDocument& document);

/// How many letters each column of a table needs, its heading and totals included; where the
/// heading of a group needs more than its columns, the last of them gets it.
std::vector<int> LetterWidths(const Table& table);

/// True when tables of these widths need landscape pages.
bool IsWide(const ReportDocument& document, const std::vector<int>& widths);

}  // namespace quorvane::reporting
