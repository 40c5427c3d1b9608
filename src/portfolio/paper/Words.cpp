#include "portfolio/paper/Words.h"

#include "core/text/Amounts.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>

namespace quorvane::paper {
namespace {

constexpr double kLetterWidth = 6;  // of a plain text, in points

bool IsAlnum(char one) {
  return std::isalnum(static_cast<unsigned char>(one)) != 0;
}

bool IsDigit(char one) {
  return one >= '0' && one <= '9';
}

bool IsDevanagari(std::string_view letter) {
  return letter.size() == 3 && (letter.starts_with("\xE0\xA4") || letter.starts_with("\xE0\xA5"));
}

/// Letters that are not seen: the soft hyphen, joiners and marks of direction.
bool IsHidden(std::string_view letter) {
  static constexpr std::array<std::string_view, 6> kHidden{
      "\xC2\xAD", "\xE2\x80\x8B", "\xE2\x80\x8C", "\xE2\x80\x8D", "\xE2\x80\x8E", "\xEF\xBB\xBF"};
  return std::ranges::find(kHidden, letter) != kHidden.end();
}

std::size_t LetterLength(unsigned char first) {
  if (first < 0xC0) {
    return 1;
  }
  return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

/// Without hidden letters; nothing of a word in Devanagari or of one that is a mark alone.
std::string Cleaned(std::string_view word) {
  std::string clean;
  for (std::size_t at = 0; at < word.size();) {
    const std::size_t length =
        std::min(LetterLength(static_cast<unsigned char>(word[at])), word.size() - at);
    const std::string_view letter = word.substr(at, length);
    at += length;
    if (IsDevanagari(letter)) {
      return {};
    }
    if (!IsHidden(letter)) {
      clean += letter;
    }
  }
  const bool is_mark = clean.find_first_not_of("@!#*^$~") == std::string::npos;
  return is_mark ? std::string() : clean;
}

bool IsDoubled(std::string_view word) {
  if (word.size() < 2 || word.size() % 2 != 0) {
    return false;
  }
  for (std::size_t i = 0; i < word.size(); i += 2) {
    if (word[i] != word[i + 1]) {
      return false;
    }
  }
  return true;
}

/// Bold letters are sometimes printed twice: "SShhaarreess". A line with two such words is one.
void Undouble(std::vector<Word>& words) {
  constexpr std::size_t kLong = 6;
  const auto is_sure = [](const Word& word) {
    return word.text.size() >= kLong && IsDoubled(word.text) &&
           std::isalpha(static_cast<unsigned char>(word.text.front())) != 0;
  };
  if (std::ranges::count_if(words, is_sure) < 2) {
    return;
  }
  for (Word& word : words) {
    if (IsDoubled(word.text)) {
      std::string once;
      for (std::size_t i = 0; i < word.text.size(); i += 2) {
        once += word.text[i];
      }
      word.text = std::move(once);
    }
  }
}

/// "2,81" and ",590.53" are one number.
void JoinNumbers(std::vector<Word>& words) {
  for (std::size_t i = 1; i < words.size();) {
    Word& before = words[i - 1];
    const Word& word = words[i];
    const bool goes_on = word.text.size() > 1 && word.text.front() == ',' &&
                         IsDigit(word.text[1]) && IsDigit(before.text.back());
    if (goes_on) {
      before.text += word.text;
      before.right = word.right;
      words.erase(words.begin() + static_cast<std::ptrdiff_t>(i));
    } else {
      ++i;
    }
  }
}

/// Keeps lines that still have words.
void AddLine(std::vector<Line>& lines, std::size_t number, std::vector<Word> words) {
  for (Word& word : words) {
    word.text = Cleaned(word.text);
  }
  std::erase_if(words, [](const Word& word) { return word.text.empty(); });
  Undouble(words);
  JoinNumbers(words);
  if (!words.empty()) {
    lines.push_back({number, std::move(words)});
  }
}

/// Splits at blanks, no-break blanks included; the places are those of the letters.
std::vector<Word> WordsOf(std::string_view line, double left, double letter_width) {
  std::vector<Word> words;
  std::size_t column = 0;
  bool in_word = false;
  for (std::size_t at = 0; at < line.size(); ++column) {
    const std::size_t length =
        std::min(LetterLength(static_cast<unsigned char>(line[at])), line.size() - at);
    const std::string_view letter = line.substr(at, length);
    at += length;
    const bool blank = letter == " " || letter == "\t" || letter == "\r" || letter == "\xC2\xA0";
    if (!blank) {
      const double place = left + static_cast<double>(column) * letter_width;
      if (!in_word) {
        words.push_back({{}, place, place});
      }
      words.back().text += letter;
      words.back().right = place + letter_width;
    }
    in_word = !blank;
  }
  return words;
}

struct Placed {
  double middle;
  double height;
  const documents::PlacedWord* word;
};

void AddLinesOfPage(std::vector<Line>& lines, std::size_t& number, std::vector<Placed> page) {
  constexpr double kSameLine = 0.45;  // of a letter's height
  std::ranges::stable_sort(page, {}, &Placed::middle);
  for (std::size_t first = 0; first < page.size();) {
    std::size_t next = first + 1;
    while (next < page.size() && page[next].middle - page[first].middle <=
                                     kSameLine * std::min(page[first].height, page[next].height)) {
      ++next;
    }
    std::vector<const documents::PlacedWord*> row;
    for (std::size_t i = first; i < next; ++i) {
      row.push_back(page[i].word);
    }
    std::ranges::stable_sort(row, {}, &documents::PlacedWord::left);
    std::vector<Word> words;
    for (const documents::PlacedWord* placed : row) {
      const std::string utf8 = placed->text.toStdString();
      const auto letters = static_cast<double>(std::max<qsizetype>(placed->text.size(), 1));
      for (Word& word : WordsOf(utf8, placed->left, (placed->right - placed->left) / letters)) {
        words.push_back(std::move(word));
      }
    }
    AddLine(lines, ++number, std::move(words));
    first = next;
  }
}

}  // namespace

std::string Line::Text() const {
  std::string text;
  for (const Word& word : words) {
    text += (text.empty() ? "" : " ") + word.text;
  }
  return text;
}

std::vector<Line> LinesOf(const documents::PrintedText& text) {
  std::vector<Line> lines;
  std::size_t number = 0;
  for (std::size_t first = 0; first < text.words.size();) {
    std::vector<Placed> page;
    std::size_t next = first;
    for (; next < text.words.size() && text.words[next].page == text.words[first].page; ++next) {
      const documents::PlacedWord& word = text.words[next];
      page.push_back({(word.top + word.bottom) / 2, word.bottom - word.top, &word});
    }
    AddLinesOfPage(lines, number, std::move(page));
    first = next;
  }
  return lines;
}

std::vector<Line> LinesOf(std::string_view utf8) {
  std::vector<Line> lines;
  std::size_t number = 0;
  while (!utf8.empty()) {
    const std::size_t end = std::min(utf8.find('\n'), utf8.size());
    AddLine(lines, ++number, WordsOf(utf8.substr(0, end), 0, kLetterWidth));
    utf8.remove_prefix(std::min(end + 1, utf8.size()));
  }
  return lines;
}

std::vector<Line> LinesOf(const files::TextTable& table) {
  std::vector<Line> lines;
  for (const files::TextRow& row : table.rows) {
    std::vector<Word> words;
    for (const std::string& cell : row.cells) {
      words.push_back({cell, 0, 0});
    }
    AddLine(lines, row.line, std::move(words));
  }
  return lines;
}

std::string Upper(std::string_view text) {
  std::string upper(text);
  std::ranges::transform(upper, upper.begin(), [](unsigned char one) {
    return static_cast<char>(one < 0x80 ? std::toupper(one) : one);
  });
  return upper;
}

std::string TermOf(std::string_view word) {
  while (!word.empty() && !IsAlnum(word.front())) {
    word.remove_prefix(1);
  }
  while (!word.empty() && !IsAlnum(word.back())) {
    word.remove_suffix(1);
  }
  return Upper(word);
}

bool HasPhrase(std::string_view upper_line, std::string_view phrase) {
  for (std::size_t at = upper_line.find(phrase); at != std::string_view::npos;
       at = upper_line.find(phrase, at + 1)) {
    const std::size_t end = at + phrase.size();
    if ((at == 0 || !IsAlnum(upper_line[at - 1])) &&
        (end == upper_line.size() || !IsAlnum(upper_line[end]))) {
      return true;
    }
  }
  return false;
}

std::optional<double> NumberOf(std::string_view word) {
  constexpr std::string_view kRupee = "\xE2\x82\xB9";
  constexpr std::size_t kLongest = 24;
  if (word == "-" || word == "--" || word == "---") {
    return 0;
  }
  bool negative = false;
  if (word.size() > 2 && word.front() == '(' && word.back() == ')') {
    negative = true;
    word = word.substr(1, word.size() - 2);
  }
  if (word.starts_with(kRupee)) {
    word.remove_prefix(kRupee.size());
  }
  if (word.starts_with('-') || word.starts_with('+')) {
    negative = negative != word.starts_with('-');
    word.remove_prefix(1);
  }
  std::string plain = word.starts_with('.') ? "0" : "";
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (word[i] == ',' && i > 0 && i + 1 < word.size() && IsDigit(word[i - 1]) &&
        IsDigit(word[i + 1])) {
      continue;
    }
    if (!IsDigit(word[i]) && word[i] != '.') {
      return std::nullopt;
    }
    plain += word[i];
  }
  if (plain.size() > kLongest || std::ranges::none_of(word, IsDigit)) {
    return std::nullopt;
  }
  if (plain.back() == '.') {
    plain.pop_back();
  }
  const std::optional<double> number = text::ParseNumber(plain);
  return number && negative ? std::optional(-*number) : number;
}

namespace {

bool IsNothing(std::string_view word) {
  const std::string upper = Upper(word);
  return upper == "NIL" || upper == "N.A." || upper == "NA" || upper == "N.A";
}

}  // namespace

double NumberOrZero(std::string_view word) {
  return NumberOf(word).value_or(0);
}

std::size_t TrailingNumbers(std::span<const Word> words) {
  std::size_t count = 0;
  while (count < words.size()) {
    const std::string& word = words[words.size() - 1 - count].text;
    if (!NumberOf(word) && !IsNothing(word)) {
      break;
    }
    ++count;
  }
  return count;
}

std::string IsinIn(std::string_view word) {
  constexpr std::size_t kLength = 12;
  for (std::size_t at = word.find("IN"); at != std::string_view::npos;
       at = word.find("IN", at + 1)) {
    const std::string_view isin = word.substr(at, kLength);
    const bool whole = isin.size() == kLength && (at == 0 || !IsAlnum(word[at - 1])) &&
                       (at + kLength == word.size() || !IsAlnum(word[at + kLength]));
    const bool formed = whole && std::ranges::all_of(isin, [](char one) {
                          return IsDigit(one) || (one >= 'A' && one <= 'Z');
                        });
    // Depositories' own numbers have digits where an ISIN has its kind of issuer.
    if (formed && IsDigit(isin.back()) &&
        std::ranges::any_of(isin.substr(2), [](char one) { return IsDigit(one); }) &&
        std::ranges::count_if(isin, IsDigit) < static_cast<std::ptrdiff_t>(kLength) - 1) {
      return std::string(isin);
    }
  }
  return {};
}

}  // namespace quorvane::paper
