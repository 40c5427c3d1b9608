#pragma once

#include "core/files/Archive.h"

#include <span>

namespace quorvane::files {

/// The first sheet with contents of an .xlsx workbook: of a formula its last result, of a date the
/// days since 30 December 1899. Throws TableError.
TextTable ReadXlsx(std::span<const ArchiveEntry> parts);

/// The same of an .ods workbook, of a date "yyyy-mm-dd".
TextTable ReadOds(std::span<const ArchiveEntry> parts);

/// The part of that name; nullptr when there is none.
const ArchiveEntry* FindPart(std::span<const ArchiveEntry> parts, std::string_view name);

/// A number as workbooks write it ("961.14999999999998") in its shortest form ("961.15"); another
/// text as it stands.
std::string ShortNumber(const std::string& text);

}  // namespace quorvane::files
