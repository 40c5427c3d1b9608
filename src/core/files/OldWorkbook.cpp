#include "core/files/OldWorkbook.h"

#include "core/text/Amounts.h"

#include <QCoreApplication>

#include <freexl.h>

#include <memory>

namespace quorvane::files {
namespace {

[[noreturn]] void Refuse(const char* text) {
  throw TableError(QCoreApplication::translate("Files", text).toStdString());
}

using Handle = std::unique_ptr<const void, decltype(&freexl_close)>;

Handle Open(const std::string& path) {
  const void* handle = nullptr;
  if (freexl_open(path.c_str(), &handle) != FREEXL_OK) {
    if (handle != nullptr) {
      freexl_close(handle);
    }
    Refuse(QT_TRANSLATE_NOOP("Files", "The workbook cannot be read."));
  }
  Handle workbook(handle, &freexl_close);
  unsigned int password = FREEXL_BIFF_PLAIN;
  freexl_get_info(handle, FREEXL_BIFF_PASSWORD, &password);
  if (password == FREEXL_BIFF_OBFUSCATED) {
    Refuse(QT_TRANSLATE_NOOP("Files", "The workbook is locked by a password."));
  }
  return workbook;
}

std::string TextOf(const FreeXL_CellValue& cell) {
  std::string text;
  switch (cell.type) {
    case FREEXL_CELL_INT:
      return std::to_string(cell.value.int_value);
    case FREEXL_CELL_DOUBLE:
      text::AppendExact(text, cell.value.double_value);
      return text;
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME:
      return cell.value.text_value == nullptr ? std::string() : cell.value.text_value;
    default:
      return text;
  }
}

TextTable SheetOf(const void* workbook, unsigned short sheet) {
  unsigned int rows = 0;
  unsigned short columns = 0;
  if (freexl_select_active_worksheet(workbook, sheet) != FREEXL_OK ||
      freexl_worksheet_dimensions(workbook, &rows, &columns) != FREEXL_OK) {
    Refuse(QT_TRANSLATE_NOOP("Files", "The workbook cannot be read."));
  }
  TableBuilder builder;
  for (unsigned int row = 0; row < rows; ++row) {
    for (unsigned short column = 0; column < columns; ++column) {
      FreeXL_CellValue cell{};
      if (freexl_get_cell_value(workbook, row, column, &cell) == FREEXL_OK) {
        builder.Put(row, column, TextOf(cell));
      }
    }
  }
  return builder.Take();
}

}  // namespace

bool IsOldWorkbook(std::string_view bytes) {
  return bytes.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
}

TextTable ReadOldWorkbook(const std::string& path) {
  const Handle workbook = Open(path);
  unsigned int sheets = 0;
  freexl_get_info(workbook.get(), FREEXL_BIFF_SHEET_COUNT, &sheets);
  for (unsigned int sheet = 0; sheet < sheets; ++sheet) {
    TextTable table = SheetOf(workbook.get(), static_cast<unsigned short>(sheet));
    if (!table.rows.empty()) {
      return table;
    }
  }
  Refuse(QT_TRANSLATE_NOOP("Files", "The file is empty."));
}

}  // namespace quorvane::files
