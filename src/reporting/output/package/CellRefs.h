#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane::reporting {

/// A cell's place in a sheet, counted from 1.
struct CellPlace {
  int row = 0;
  int column = 0;

  auto operator<=>(const CellPlace&) const = default;
};

/// "AB".
std::string ColumnName(int column);

/// "AB12".
std::string CellName(const CellPlace& place);

/// Reads "AB12" or "$AB$12"; nullopt for anything else.
std::optional<CellPlace> ParseCell(std::string_view text);

/// A sheet and a cell of it: "'My sheet'!$B$4", of a range the first cell.
struct SheetCell {
  std::string sheet;
  CellPlace cell;
};
std::optional<SheetCell> ParseSheetCell(std::string_view text);

/// Which part of a reference a row is.
enum class RefEnd : std::uint8_t { kSingle, kFirst, kLast };

/// The row that takes the place of a row of a reference.
using RowMap = std::function<int(int row, RefEnd end, bool absolute)>;

/// True for the wanted sheet's name before a reference; empty when there is none.
using SheetTest = std::function<bool(std::string_view sheet)>;

/// Rewrites the rows of the cell references, ranges ("B4:B9") and ranges of rows ("$5:$6") in a
/// formula or a list of ranges; all else stays as it is.
std::string MapReferences(std::string_view formula, const SheetTest& wanted, const RowMap& map);

/// Rows `first` to `last` that were replaced by `count` rows; what is below has moved.
struct BlockShift {
  int first = 0;
  int last = 0;
  int count = 0;

  bool Holds(int row) const { return first <= row && row <= last; }
  int Map(int row, RefEnd end) const;
};

}  // namespace quorvane::reporting
