#pragma once

#include "core/files/TextTable.h"

namespace quorvane::files {

/// The first sheet with contents of an .xls workbook as programs since 1997 write it: of a formula
/// its last result, of a date the days since 30 December 1899. Throws TableError.
TextTable ReadXlsWorkbook(std::string_view bytes);

}  // namespace quorvane::files
