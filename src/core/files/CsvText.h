#pragma once

#include "core/files/TextTable.h"

namespace quorvane::files {

/// Reads comma separated text in UTF-8, UTF-16 with a byte order mark, or Latin-1. Entities of
/// markup that exchanges leave in names ("&amp;", "&#38;") are turned into their characters. Throws
/// TableError with the line for what is no such text, and for a web page in its place.
TextTable ReadCsvText(std::string_view bytes);

}  // namespace quorvane::files
