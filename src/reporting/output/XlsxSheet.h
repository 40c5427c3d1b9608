#pragma once

#include "reporting/document/ReportDocument.h"

#include <xlsxwriter.h>

#include <array>
#include <vector>

namespace quorvane::reporting {

/// The formats of a table's cells: one a kind of row and column, for numbers and for dates.
class CellFormats {
 public:
  CellFormats(lxw_workbook* book, const Table& table);

  lxw_format* For(RowKind kind, std::size_t column, bool date);

 private:
  struct Pair {
    lxw_format* plain = nullptr;
    lxw_format* date = nullptr;
  };

  std::vector<Pair>& Of(RowKind kind) { return formats_[static_cast<std::size_t>(kind)]; }

  static lxw_format* Make(lxw_workbook* book, RowKind kind, const Column& column, bool date);

  std::array<std::vector<Pair>, 4> formats_;
};

/// Throws std::runtime_error for a failure of the library that writes workbooks.
void CheckBook(lxw_error error);

/// Writes the cells of a sheet; rows and columns are counted from 0. Without a format an empty text
/// makes no cell. Throws std::runtime_error.
class XlsxCells {
 public:
  explicit XlsxCells(lxw_worksheet* sheet) : sheet_(sheet) {}

  void Text(lxw_row_t row, std::size_t column, const QString& text, lxw_format* format);

  /// A text over `count` neighbouring columns.
  void Merged(lxw_row_t row, std::size_t column, std::size_t count, const QString& text,
              lxw_format* format);

  /// Numbers and dates as values, the number as the mask shows it; what a workbook cannot hold as a
  /// value as the text that is shown.
  void Put(lxw_row_t row, std::size_t column, const Cell& cell, Mask mask, lxw_format* format);

 private:
  lxw_worksheet* sheet_;
};

/// The format of the headings over the columns.
lxw_format* HeadingFormat(lxw_workbook* book);

}  // namespace quorvane::reporting
