#pragma once

#include "core/files/TextTable.h"

namespace quorvane::files {

/// True when the bytes begin as an .xls workbook does.
bool IsOldWorkbook(std::string_view bytes);

/// The first sheet with contents of an .xls workbook. Throws TableError.
TextTable ReadOldWorkbook(const std::string& path);

}  // namespace quorvane::files
