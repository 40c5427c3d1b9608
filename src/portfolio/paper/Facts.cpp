#include "portfolio/paper/Facts.h"

#include "portfolio/paper/Words.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>

namespace quorvane::paper {
namespace {

bool IsDigit(char one) {
  return one >= '0' && one <= '9';
}

bool IsLetter(char one) {
  return std::isalpha(static_cast<unsigned char>(one)) != 0;
}

bool AllDigits(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, IsDigit);
}

int NumberIn(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

/// 1 to 12 for the name of a month or its first letters; 0 for any other word.
int MonthOf(std::string_view word) {
  static constexpr std::array<std::string_view, 12> kMonths{
      "JANUARY", "FEBRUARY", "MARCH",     "APRIL",   "MAY",      "JUNE",
      "JULY",    "AUGUST",   "SEPTEMBER", "OCTOBER", "NOVEMBER", "DECEMBER"};
  const std::string upper = Upper(word);
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    if (upper.size() >= 3 && kMonths[i].starts_with(upper)) {
      return static_cast<int>(i) + 1;
    }
  }
  return 0;
}

/// Pieces of letters or of digits, with what is between them.
struct Piece {
  std::string_view text;
  std::size_t at = 0;
  std::string_view before;  ///< since the piece before it
};

std::vector<Piece> PiecesOf(std::string_view text) {
  std::vector<Piece> pieces;
  std::size_t end = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (!IsDigit(text[at]) && !IsLetter(text[at])) {
      ++at;
      continue;
    }
    std::size_t last = at;
    while (last < text.size() && IsDigit(text[last]) == IsDigit(text[at]) &&
           (IsDigit(text[last]) || IsLetter(text[last]))) {
      ++last;
    }
    pieces.push_back({text.substr(at, last - at), at, text.substr(end, at - end)});
    at = end = last;
  }
  return pieces;
}

bool Separates(std::string_view between) {
  return between == "-" || between == "/" || between == "." || between == " " || between == ", " ||
         between == "," || between == " - ";
}

std::optional<text::Date> DayFrom(const Piece& a, const Piece& b, const Piece& c) {
  constexpr std::size_t kYear = 4;
  if (!Separates(b.before) || !Separates(c.before)) {
    return std::nullopt;
  }
  const auto is_short = [](std::string_view part) { return AllDigits(part) && part.size() <= 2; };
  const int month =
      AllDigits(b.text) ? (b.text.size() <= 2 ? NumberIn(b.text) : 0) : MonthOf(b.text);
  if (a.text.size() == kYear && AllDigits(a.text) && month > 0 && is_short(c.text)) {
    return text::MakeDate(NumberIn(c.text), month, NumberIn(a.text));
  }
  const bool written = c.before == b.before && (c.before == "-" || c.before == "/");
  if (written && is_short(a.text) && month > 0 && c.text.size() == 2 && AllDigits(c.text)) {
    constexpr int kCentury = 2000;
    return text::MakeDate(NumberIn(a.text), month, kCentury + NumberIn(c.text));
  }
  if (c.text.size() != kYear || !AllDigits(c.text)) {
    return std::nullopt;
  }
  if (is_short(a.text) && month > 0) {
    return text::MakeDate(NumberIn(a.text), month, NumberIn(c.text));
  }
  return MonthOf(a.text) > 0 && is_short(b.text)
             ? text::MakeDate(NumberIn(b.text), MonthOf(a.text), NumberIn(c.text))
             : std::nullopt;
}

}  // namespace

std::vector<FoundDay> DaysIn(std::string_view text) {
  std::vector<FoundDay> days;
  const std::vector<Piece> pieces = PiecesOf(text);
  for (std::size_t i = 0; i + 2 < pieces.size();) {
    if (const auto day = DayFrom(pieces[i], pieces[i + 1], pieces[i + 2])) {
      days.push_back({*day, pieces[i].at});
      i += 3;
    } else {
      ++i;
    }
  }
  return days;
}

std::optional<text::Date> DayAfter(std::string_view line, std::string_view phrase) {
  constexpr std::size_t kNear = 24;  // letters between the phrase and the day
  const std::string upper = Upper(line);
  const std::size_t at = upper.find(phrase);
  if (at == std::string::npos) {
    return std::nullopt;
  }
  for (const FoundDay& found : DaysIn(line)) {
    if (found.at >= at + phrase.size()) {
      return found.at <= at + phrase.size() + kNear ? std::optional(found.day) : std::nullopt;
    }
  }
  return std::nullopt;
}

namespace {

constexpr std::size_t kHalf = 8;
constexpr std::size_t kWhole = 16;

bool IsNsdl(std::string_view token, std::size_t length) {
  return token.size() == length && token.starts_with("IN") && AllDigits(token.substr(2));
}

}  // namespace

std::string AccountNumbers::TakeToken(std::string_view token) {
  const Label label = label_;
  if (label_ == Label::kNext) {
    label_ = Label::kNone;
  }
  if (token == "DP" || token == "DPID") {
    label_ = Label::kParticipant;
  } else if (token == "CLIENT" || token == "CLIENTID" || token == "BO" || token == "BOID") {
    label_ = Label::kClient;
  } else if (IsNsdl(token, kWhole)) {
    return std::string(token);
  } else if (token.size() == kWhole && AllDigits(token)) {
    return named_ || label == Label::kClient ? std::string(token) : std::string();
  } else if (IsNsdl(token, kHalf)) {
    participant_ = token;
    label_ = Label::kNext;
  } else if (token.size() == kHalf && AllDigits(token)) {
    if (label == Label::kParticipant) {
      participant_ = token;
      label_ = Label::kNone;
    } else if (label == Label::kClient || label == Label::kNext) {
      label_ = Label::kNone;
      return participant_ + std::string(token);
    }
  } else if (token != "ID" && token != "NO" && token != "NAME") {
    label_ = Label::kNone;
  }
  return {};
}

std::string AccountNumbers::Take(std::string_view line) {
  const std::string upper = Upper(line);
  named_ = false;
  for (const char* word : {"BO ID", "BOID", "DEMAT", "ACCOUNT", "CLIENT", "A/C"}) {
    named_ = named_ || HasPhrase(upper, word);
  }
  std::string found;
  for (std::size_t at = 0; at < upper.size();) {
    if (!IsDigit(upper[at]) && !IsLetter(upper[at])) {
      ++at;
      continue;
    }
    std::size_t end = at;
    while (end < upper.size() && (IsDigit(upper[end]) || IsLetter(upper[end]))) {
      ++end;
    }
    std::string account = TakeToken(std::string_view(upper).substr(at, end - at));
    if (!account.empty()) {
      found = std::move(account);
    }
    at = end;
  }
  return found;
}

}  // namespace quorvane::paper
