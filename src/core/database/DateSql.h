#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>

namespace quorvane::database {

/// The SQL expression that reads a "dd/mm/yyyy" column as a date, for orders and ranges.
inline std::string DateOf(std::string_view column) {
  return fmt::format("convert(concat_ws('-',right({0},4),mid({0},4,2),left({0},2)),datetime)",
                     column);
}

}  // namespace quorvane::database
