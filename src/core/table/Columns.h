#pragma once

#include <QString>
#include <Qt>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What the tables on the screen (controls::Grid) and those of the reports (reporting::Table) have
/// in common: columns and kinds of row.
namespace quorvane::table {

/// How the values of a column are written, and in a grid how they are taken.
enum class Mask : std::uint8_t {
  kText,
  kDate,       ///< dd/mm/yyyy; sorts by day
  kTick,       ///< a check box, in grids alone
  kNumber,     ///< plain: counters
  kAmount,     ///< ###0.00
  kSummary,    ///< ##0.00
  kPercent,    ///< ###0.000
  kQuantity,   ///< ###0.00, further decimals kept in a workbook
  kThousands,  ///< ###,###.00
};

enum class Alignment : std::uint8_t { kLeft, kRight, kCentre };

/// A column of a table. The members from `choices` on are for entry; reports do not use them.
struct Column {
  QString heading = {};
  Mask mask = Mask::kText;
  std::optional<Alignment> alignment = std::nullopt;  ///< none: numbers right, all else left

  /// In a report, its share of the width that is left over; with 0 in every column the texts share
  /// it.
  int weight = 0;

  QString choices = {};  ///< "#0;S|#1;P": the cell keeps the number and shows the text
  bool editable = false;
  bool hidden = false;
  int max_length = 0;      ///< of a text; 0: any
  bool upper_case = true;  ///< typed letters turn to upper case

  bool operator==(const Column&) const = default;
};

/// What a row is. Only data is ticked, edited and sorted; the others look different.
enum class RowKind : std::uint8_t {
  kGroup,     ///< the heading of what follows; in a report one text over the whole width
  kData,      ///< a line
  kTotal,     ///< total of a group
  kNetTotal,  ///< total of the table
  kGap,       ///< an empty line
};

/// A row of cells. Grids keep what Qt's views take (QVariant), reports a small type of their own,
/// because they may have a million lines. Cells that are missing at the end are empty.
template <class CellType>
struct Row {
  int id = 0;  ///< the record's key, not shown; 0 where rows are no records
  RowKind kind = RowKind::kData;
  std::vector<CellType> cells = {};
};

/// True for the masks of numbers; for those of money and percentages, which have decimals.
bool IsNumeric(Mask mask);
bool HasDecimals(Mask mask);

/// How the cells of a column are aligned. A number that only chooses a text is aligned as a text.
Alignment AlignmentOf(const Column& column);

/// The same as Qt's views take it, in the middle of the row's height.
Qt::Alignment ViewAlignment(const Column& column);

/// A number as it is shown; appended as UTF-8, or as a text of its own. A mask that is not of
/// numbers writes it plain.
void AppendNumber(std::string& out, double number, Mask mask);
QString NumberText(double number, Mask mask);

/// A number as exactly the value that the mask shows.
double ShownNumber(double number, Mask mask);

}  // namespace quorvane::table
