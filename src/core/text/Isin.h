#pragma once

#include <string_view>

namespace quorvane::text {

/// Whether a text is an international securities identification number: two letters, nine letters
/// or digits, and the check digit that follows from these, in capitals ("INE002A01018").
bool IsValidIsin(std::string_view isin);

}  // namespace quorvane::text
