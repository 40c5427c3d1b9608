#include "portfolio/trades/TradeText.h"

#include "core/text/Amounts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace quorvane::portfolio {
namespace {

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr char Small(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr char Capital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string Capitals(std::string_view text) {
  std::string capitals(text);
  std::ranges::transform(capitals, capitals.begin(), Capital);
  return capitals;
}

/// The runs of digits and of letters.
std::vector<std::string_view> PiecesOf(std::string_view text) {
  std::vector<std::string_view> pieces;
  for (std::size_t at = 0; at < text.size();) {
    const auto kind = IsDigit(text[at]) ? IsDigit : IsLetter(text[at]) ? IsLetter : nullptr;
    std::size_t end = at + 1;
    while (kind != nullptr && end < text.size() && kind(text[end])) {
      ++end;
    }
    if (kind != nullptr) {
      pieces.push_back(text.substr(at, end - at));
    }
    at = end;
  }
  return pieces;
}

/// -1 for what is no number of at most four digits.
int SmallNumber(std::string_view piece) {
  constexpr std::size_t kDigits = 4;
  int number = -1;
  if (!piece.empty() && piece.size() <= kDigits && IsDigit(piece.front())) {
    std::from_chars(piece.data(), piece.data() + piece.size(), number);
  }
  return number;
}

/// By the first three letters of its English name; 0 for other words.
int MonthNamed(std::string_view piece) {
  constexpr std::array<std::string_view, 12> kMonths{"jan", "feb", "mar", "apr", "may", "jun",
                                                     "jul", "aug", "sep", "oct", "nov", "dec"};
  constexpr std::size_t kLetters = 3;
  if (piece.size() < kLetters || !IsLetter(piece.front())) {
    return 0;
  }
  const std::array<char, kLetters> begin{Small(piece[0]), Small(piece[1]), Small(piece[2])};
  const auto* found = std::ranges::find(kMonths, std::string_view(begin.data(), begin.size()));
  return found == kMonths.end() ? 0 : static_cast<int>(std::distance(kMonths.begin(), found)) + 1;
}

int FullYear(std::string_view piece) {
  constexpr int kCentury = 2000;
  const int year = SmallNumber(piece);
  return piece.size() == 2 ? kCentury + year : piece.size() == 4 ? year : -1;
}

std::optional<text::Date> DayOf(const std::vector<std::string_view>& pieces, DayOrder order) {
  const int first = SmallNumber(pieces[0]);
  const int second = SmallNumber(pieces[1]);
  const int third = SmallNumber(pieces[2]);
  if (const int month = MonthNamed(pieces[0]); month > 0) {
    return text::MakeDate(second, month, FullYear(pieces[2]));
  }
  if (const int month = MonthNamed(pieces[1]); month > 0) {
    return text::MakeDate(first, month, FullYear(pieces[2]));
  }
  if (pieces[0].size() == 4) {
    return text::MakeDate(third, second, first);
  }
  const int year = FullYear(pieces[2]);
  return order == DayOrder::kMonthFirst ? text::MakeDate(second, first, year)
                                        : text::MakeDate(first, second, year);
}

/// The days since 30 December 1899, and the part of a day, by which workbooks keep a moment.
std::optional<Moment> MomentNumbered(std::string_view text) {
  constexpr double kFirst = 20'000;  // in 1954
  constexpr double kLast = 80'000;   // in 2119
  constexpr int kDaySeconds = 24 * 60 * 60;
  const auto number = text::ParseNumber(text);
  if (!number || *number < kFirst || *number > kLast) {
    return std::nullopt;
  }
  const double days = std::floor(*number);
  const double part = *number - days;
  const text::Date day = *text::MakeDate(30, 12, 1899) + std::chrono::days(static_cast<int>(days));
  const int seconds = static_cast<int>(std::lround(part * kDaySeconds)) % kDaySeconds;
  return Moment{day, part > 0 ? seconds : -1};
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::string_view WithoutBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto first = text.find_first_not_of(kBlanks);
  return first == std::string_view::npos
             ? std::string_view()
             : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

std::string HeadingWords(std::string_view heading) {
  std::string words;
  bool gap = false;
  for (const char c : heading) {
    if (!IsDigit(c) && !IsLetter(c)) {
      gap = true;
      continue;
    }
    if (gap && !words.empty()) {
      words += ' ';
    }
    gap = false;
    words += Small(c);
  }
  return words;
}

std::optional<Moment> MomentIn(std::string_view text, DayOrder order) {
  constexpr std::size_t kDayPieces = 3;
  text = WithoutBlanks(text);
  const std::vector<std::string_view> pieces = PiecesOf(text);
  if (pieces.size() < kDayPieces) {
    return MomentNumbered(text);
  }
  const auto day = DayOf(pieces, order);
  if (!day) {
    return std::nullopt;
  }
  const auto end = static_cast<std::size_t>(pieces[2].data() - text.data()) + pieces[2].size();
  std::string_view rest = WithoutBlanks(text.substr(end));
  if (rest.empty()) {
    return Moment{*day};
  }
  if (rest.front() == 'T' || rest.front() == ',') {
    rest.remove_prefix(1);
  }
  const auto time = TimeIn(rest);
  return time ? std::optional(Moment{*day, *time}) : std::nullopt;
}

std::optional<int> TimeIn(std::string_view text) {
  constexpr int kNoon = 12;
  constexpr int kDaySeconds = 24 * 60 * 60;
  text = WithoutBlanks(text);
  if (const auto part_of_day = text::ParseNumber(text); part_of_day && *part_of_day < 1) {
    const int seconds = static_cast<int>(std::lround(*part_of_day * kDaySeconds));
    return *part_of_day < 0 ? std::nullopt : std::optional(seconds % kDaySeconds);
  }
  const auto part = text.find('.');
  const std::vector<std::string_view> pieces = PiecesOf(text.substr(0, part));
  if (pieces.size() < 2 || !Contains(text, ":")) {
    return std::nullopt;
  }
  int hour = SmallNumber(pieces[0]);
  const int minute = SmallNumber(pieces[1]);
  const bool has_seconds = pieces.size() > 2 && IsDigit(pieces[2].front());
  const int second = has_seconds ? SmallNumber(pieces[2]) : 0;
  const std::string last = Capitals(pieces.back());
  if (last == "PM" || last == "AM") {
    hour = hour % kNoon + (last == "PM" ? kNoon : 0);
  }
  const bool proper =
      hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
  return proper ? std::optional((hour * 60 + minute) * 60 + second) : std::nullopt;
}

std::optional<double> NumberIn(std::string_view text) {
  std::string plain;
  bool below = false;
  for (const char c : text) {
    below = below || c == '(';
    if (IsDigit(c) || c == '.' || c == '-' || IsLetter(c)) {
      plain += c;
    }
  }
  for (const std::string_view sign : {"Rs.", "Rs", "INR"}) {
    if (plain.starts_with(sign)) {
      plain.erase(0, sign.size());
    }
  }
  if (plain == "-" || plain == "--") {
    return 0;
  }
  if (plain.starts_with('.') || plain.starts_with("-.")) {
    plain.insert(plain.find('.'), "0");
  }
  const auto number = text::ParseNumber(plain);
  return number && below ? -*number : number;
}

std::optional<records::Side> SideIn(std::string_view text) {
  const std::string words = HeadingWords(text);
  const std::string_view first = std::string_view(words).substr(0, words.find(' '));
  for (const std::string_view word : {"buy", "b", "bought", "purchase", "p"}) {
    if (first == word) {
      return records::Side::kPurchase;
    }
  }
  for (const std::string_view word : {"sell", "s", "sold", "sale"}) {
    if (first == word) {
      return records::Side::kSale;
    }
  }
  return std::nullopt;
}

std::string ExchangeIn(std::string_view text) {
  std::string capitals = Capitals(WithoutBlanks(text));
  for (const std::string_view name : {"NSE", "BSE"}) {
    if (Contains(capitals, name) || capitals == name.substr(0, 1)) {
      return std::string(name);
    }
  }
  return capitals;
}

bool IsDerivative(std::string_view segment) {
  const std::string words = HeadingWords(segment);
  for (const std::string_view part :
       {"fo", "f o", "nfo", "bfo", "fno", "future", "option", "deriv", "futopt", "futidx", "futstk",
        "optidx", "optstk", "mcx", "comm", "curr", "cds", "bcd"}) {
    const auto at = words.find(part);
    const bool whole = at != std::string::npos && (at == 0 || words[at - 1] == ' ');
    const bool ends = whole && (at + part.size() == words.size() || part.size() > 3 ||
                                words[at + part.size()] == ' ');
    if (ends) {
      return true;
    }
  }
  return false;
}

bool IsTradeForTrade(std::string_view series, std::string_view exchange) {
  constexpr std::array<std::string_view, 4> kNational{"BE", "BZ", "ST", "SZ"};
  constexpr std::array<std::string_view, 6> kBombay{"T", "XT", "TS", "Z", "ZP", "ZY"};
  const std::string capitals = Capitals(WithoutBlanks(series));
  return exchange == "BSE" ? std::ranges::find(kBombay, capitals) != kBombay.end()
                           : std::ranges::find(kNational, capitals) != kNational.end();
}

std::string NumberWord(std::string_view text) {
  std::string word;
  for (const char c : text) {
    if (IsDigit(c) || IsLetter(c) || c == '.' || c == '+' || c == '-' || c == '/') {
      word += Capital(c);
    }
  }
  const bool digits_lost = Contains(word, "E+") && IsDigit(word.front());
  const bool nought = word.find_first_not_of("0.") == std::string::npos;
  return digits_lost || nought ? std::string() : word;
}

}  // namespace quorvane::portfolio
