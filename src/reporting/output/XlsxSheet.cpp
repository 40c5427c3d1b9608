#include "reporting/output/XlsxSheet.h"

#include <cmath>
#include <stdexcept>
#include <string>

namespace quorvane::reporting {
namespace {

constexpr int kEpochDays = 25569;  // 1970-01-01 as a workbook counts days
constexpr int kFirstSafeDay = 61;  // the format counts a day too many before 01/03/1900
constexpr lxw_color_t kLineColor = 0x9AA4B0;
constexpr lxw_color_t kHeadingFill = 0xE8EEF6;
constexpr lxw_color_t kNetTotalFill = 0xF3F5F8;

const char* NumberFormat(Mask mask) {
  switch (mask) {
    case Mask::kAmount:
    case Mask::kSummary:
    case Mask::kQuantity:
      return "#0.00";
    case Mask::kPercent:
      return "#0.000";
    case Mask::kThousands:
      return "###,###.00";
    case Mask::kText:
    case Mask::kDate:
    case Mask::kTick:
    case Mask::kNumber:
      break;
  }
  return nullptr;
}

std::uint8_t BookAlignment(Alignment alignment) {
  constexpr std::array kAlignments{LXW_ALIGN_LEFT, LXW_ALIGN_RIGHT, LXW_ALIGN_CENTER};
  return static_cast<std::uint8_t>(kAlignments[static_cast<std::size_t>(alignment)]);
}

}  // namespace

CellFormats::CellFormats(lxw_workbook* book, const Table& table) {
  for (const RowKind kind :
       {RowKind::kGroup, RowKind::kData, RowKind::kTotal, RowKind::kNetTotal}) {
    for (const Column& column : table.columns) {
      Of(kind).push_back({Make(book, kind, column, false), Make(book, kind, column, true)});
    }
  }
}

lxw_format* CellFormats::For(RowKind kind, std::size_t column, bool date) {
  const auto& pair = Of(kind)[column];
  return date ? pair.date : pair.plain;
}

lxw_format* CellFormats::Make(lxw_workbook* book, RowKind kind, const Column& column, bool date) {
  lxw_format* format = workbook_add_format(book);
  format_set_align(format,
                   BookAlignment(kind == RowKind::kGroup ? Alignment::kLeft : AlignmentOf(column)));
  format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
  if (column.mask == Mask::kText && kind != RowKind::kGroup) {
    format_set_text_wrap(format);
  }
  format_set_border(format, LXW_BORDER_THIN);
  format_set_border_color(format, kLineColor);
  if (AlignmentOf(column) == Alignment::kLeft && kind != RowKind::kGroup) {
    format_set_indent(format, 1);
  }
  if (kind != RowKind::kData) {
    format_set_bold(format);
  }
  if (kind == RowKind::kNetTotal) {
    format_set_top(format, LXW_BORDER_MEDIUM);
    format_set_bottom(format, LXW_BORDER_MEDIUM);
    format_set_bg_color(format, kNetTotalFill);
  }
  if (kind == RowKind::kGroup) {
    format_set_left(format, LXW_BORDER_NONE);
    format_set_right(format, LXW_BORDER_NONE);
  }
  if (date) {
    format_set_num_format(format, "dd/mm/yyyy");
  } else if (const char* number = NumberFormat(column.mask)) {
    format_set_num_format(format, number);
  }
  return format;
}

void CheckBook(lxw_error error) {
  if (error != LXW_NO_ERROR) {
    throw std::runtime_error(std::string("the workbook cannot be written: ") + lxw_strerror(error));
  }
}

void XlsxCells::Text(lxw_row_t row, std::size_t column, const QString& text, lxw_format* format) {
  const auto at = static_cast<lxw_col_t>(column);
  if (text.isEmpty()) {
    CheckBook(format == nullptr ? LXW_NO_ERROR : worksheet_write_blank(sheet_, row, at, format));
  } else {
    CheckBook(worksheet_write_string(sheet_, row, at, text.toUtf8().constData(), format));
  }
}

void XlsxCells::Merged(lxw_row_t row, std::size_t column, std::size_t count, const QString& text,
                       lxw_format* format) {
  if (count < 2) {
    Text(row, column, text, format);
    return;
  }
  CheckBook(worksheet_merge_range(sheet_, row, static_cast<lxw_col_t>(column), row,
                                  static_cast<lxw_col_t>(column + count - 1),
                                  text.toUtf8().constData(), format));
}

void XlsxCells::Put(lxw_row_t row, std::size_t column, const Cell& cell, Mask mask,
                    lxw_format* format) {
  const auto* number = std::get_if<double>(&cell);
  const auto* date = std::get_if<text::Date>(&cell);
  const auto at = static_cast<lxw_col_t>(column);
  const auto day = date == nullptr ? 0 : date->time_since_epoch().count() + kEpochDays;
  if (number != nullptr && std::isfinite(*number)) {
    CheckBook(worksheet_write_number(sheet_, row, at, table::ShownNumber(*number, mask), format));
  } else if (day >= kFirstSafeDay) {
    CheckBook(worksheet_write_number(sheet_, row, at, static_cast<double>(day), format));
  } else {
    Text(row, column, CellText(cell, mask), format);
  }
}

lxw_format* HeadingFormat(lxw_workbook* book) {
  lxw_format* heading = workbook_add_format(book);
  format_set_bold(heading);
  format_set_align(heading, LXW_ALIGN_CENTER);
  format_set_align(heading, LXW_ALIGN_VERTICAL_CENTER);
  format_set_text_wrap(heading);
  format_set_border(heading, LXW_BORDER_MEDIUM);
  format_set_bg_color(heading, kHeadingFill);
  return heading;
}

}  // namespace quorvane::reporting
