#pragma once

#include "core/text/Dates.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace quorvane::reporting {

/// How a number or a date of a column is written.
enum class Mask : std::uint8_t {
  kText,
  kDate,       ///< dd/mm/yyyy
  kAmount,     ///< ###0.00
  kSummary,    ///< ##0.00
  kPercent,    ///< ###0.000
  kNumber,     ///< plain: counters
  kQuantity,   ///< ###0.00, further decimals kept in a workbook
  kThousands,  ///< ###,###.00
};

enum class Alignment : std::uint8_t { kLeft, kRight, kCentre };

/// An empty cell, a text, a number or a date.
using Cell = std::variant<std::monostate, QString, double, text::Date>;

struct Column {
  QString heading;
  Mask mask = Mask::kText;
  Alignment alignment = Alignment::kLeft;

  /// Share of the width that is left over; with 0 in every column the texts share it.
  int weight = 0;

  bool operator==(const Column&) const = default;
};

/// Columns of the usual kinds: texts and dates stand left, numbers right.
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

enum class RowKind : std::uint8_t {
  kGroup,     ///< one text over the whole width: the heading of what follows
  kData,      ///< a line
  kTotal,     ///< total of a group
  kNetTotal,  ///< total of the table
  kGap,       ///< an empty line
};

/// Cells that are missing at the end are empty.
struct Row {
  RowKind kind = RowKind::kData;
  std::vector<Cell> cells;
};

struct Table {
  std::vector<ColumnGroup> groups;
  std::vector<Column> columns;
  std::vector<Row> rows;

  /// Lines above the table's headings ("Demat A/c No. 1001"), at its left edge.
  QStringList titles = {};
};

enum class Orientation : std::uint8_t {
  kByWidth,  ///< portrait when the columns fit, else landscape
  kPortrait,
  kLandscape,
};

/// A finished report: everything that is shown, and nothing about how. Screen, paper and every file
/// format are written from it, so that they cannot differ. The first title is the report's name.
struct ReportDocument {
  QStringList titles;  ///< centred above everything
  std::vector<Table> tables;
  QStringList notes = {};  ///< lines below everything
  Orientation orientation = Orientation::kByWidth;
};

/// True for the masks of money and percentages, which have decimals.
bool HasDecimals(Mask mask);

/// A cell as it is shown in a column; appended as UTF-8, or as a text of its own.
void AppendCell(std::string& out, const Cell& cell, Mask mask);
QString CellText(const Cell& cell, Mask mask);

/// A number as exactly the value that the mask shows.
double ShownNumber(double number, Mask mask);

/// The one cell of a group row; empty when there is none.
QString GroupText(const Row& row);

/// True when several tables have the same columns and groups: one block of headings serves all.
bool SharesHeadings(const ReportDocument& document);

/// How many rows all tables have together: the length of the work of writing them.
std::int64_t RowCount(const ReportDocument& document);

}  // namespace quorvane::reporting
