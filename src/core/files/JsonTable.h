#pragma once

#include "core/files/TextTable.h"

namespace quorvane::files {

/// Whether bytes begin as an array or an object of JSON does.
bool IsJson(std::string_view bytes);

/// Reads a JSON array of objects as a table: the first row has the names that the objects use, in
/// the order in which they first come, and each object is a row, its line its place from 1 on. The
/// array may be a member of an object around it. Texts, numbers and truth values are taken, null
/// and nested values are empty. Throws TableError.
TextTable ReadJsonTable(std::string_view bytes);

}  // namespace quorvane::files
