#pragma once

#include "core/Result.h"

#include <QString>

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace quorvane::database {

/// A text to be stored in a column, and the name by which the user knows it.
struct TextCell {
  std::string_view column;
  const char* label = "";  ///< "Client Code"
  QString text;
  Field field = Field::kNone;
};

/// How many characters a column of the schema takes; nullopt for one without a bound. Throws
/// std::logic_error for a column that the table does not have.
std::optional<std::size_t> TextWidth(std::string_view table, std::string_view column);

/// Refuses the first text that is too long for its column, before the database does so with a
/// message that names no box.
MaybeRefusal CheckTextWidths(std::string_view table, std::span<const TextCell> cells);

}  // namespace quorvane::database
