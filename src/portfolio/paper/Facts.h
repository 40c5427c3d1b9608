#pragma once

#include "core/text/Dates.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::paper {

/// A day in a text and where it begins.
struct FoundDay {
  text::Date day;
  std::size_t at = 0;
};

/// Every day that a text names: "30-Jun-2026", "31-05-2026", "31/05/2026", "30 June 2026",
/// "30-06-26", "2026-06-30", "June 30, 2026", in the order of the text.
std::vector<FoundDay> DaysIn(std::string_view text);

/// The day after the phrase, which is in capitals ("AS ON"); nullopt when there is none.
std::optional<text::Date> DayAfter(std::string_view line, std::string_view phrase);

/// Finds demat account numbers in lines that are read one after the other: "DP ID: IN301549 Client
/// ID: 12345678" over one or two lines, "IN30154912345678", "BO ID : 1208160012345678", "DP ID:
/// 12081600", "Client ID: 12345678".
class AccountNumbers {
 public:
  /// The last account number that is complete with this line, as 16 letters and digits (or the 8 of
  /// a client without a participant); empty when there is none.
  std::string Take(std::string_view line);

 private:
  enum class Label { kNone, kParticipant, kClient, kNext };

  std::string TakeToken(std::string_view token);

  std::string participant_;
  Label label_ = Label::kNone;
  bool named_ = false;  ///< the line speaks of an account
};

}  // namespace quorvane::paper
