#include "reporting/output/package/CellRefs.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace quorvane::reporting {
namespace {

constexpr int kLetters = 26;
constexpr std::size_t kMostLetters = 3;
constexpr std::size_t kMostDigits = 7;

bool IsWordPart(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '$' || c == '_' || c == '.' ||
         c == '\\' || static_cast<unsigned char>(c) >= 0x80;
}

/// One end of a reference: "$AB$12", or "$12" for a whole row.
struct RefWord {
  std::string_view before;  ///< up to the row's digits
  int row = 0;
  bool absolute = false;
  bool whole_row = false;
};

std::optional<RefWord> ReadRef(std::string_view word) {
  std::size_t at = word.starts_with('$') ? 1 : 0;
  const std::size_t letters_from = at;
  while (at < word.size() && std::isalpha(static_cast<unsigned char>(word[at])) != 0) {
    ++at;
  }
  const std::size_t letters = at - letters_from;
  RefWord ref;
  ref.whole_row = letters == 0;
  ref.absolute = ref.whole_row && letters_from == 1;
  if (!ref.whole_row && at < word.size() && word[at] == '$') {
    ref.absolute = true;
    ++at;
  }
  ref.before = word.substr(0, at);
  const std::string_view digits = word.substr(at);
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), ref.row);
  const bool whole = error == std::errc() && end == digits.data() + digits.size();
  if (letters > kMostLetters || digits.size() > kMostDigits || !whole || ref.row < 1) {
    return std::nullopt;
  }
  return ref;
}

/// Walks over a formula, copying it with its references changed.
class Rewriter {
 public:
  Rewriter(std::string_view formula, const SheetTest& wanted, const RowMap& map)
      : text_(formula), wanted_(wanted), map_(map) {}

  std::string Run() {
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (c == '"') {
        out_ += Quoted('"');
      } else if (c == '\'') {
        const std::string_view quoted = Quoted('\'');
        out_ += quoted;
        TakeSheet(Unquoted(quoted));
      } else if (c == '[') {
        const std::size_t end = std::min(text_.find(']', at_), text_.size() - 1) + 1;
        out_ += text_.substr(at_, end - at_);
        foreign_ = true;
        at_ = end;
      } else if (IsWordPart(c)) {
        Word();
      } else {
        out_ += c;
        ++at_;
        EndReference();
      }
    }
    return std::move(out_);
  }

 private:
  std::string_view Quoted(char quote) {
    const std::size_t from = at_++;
    while (at_ < text_.size()) {
      if (text_[at_++] == quote) {
        if (at_ < text_.size() && text_[at_] == quote) {
          ++at_;
        } else {
          break;
        }
      }
    }
    return text_.substr(from, at_ - from);
  }

  static std::string Unquoted(std::string_view quoted) {
    std::string name;
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
      name += quoted[i];
      i += quoted[i] == '\'' ? 1 : 0;
    }
    return name;
  }

  std::string_view NextWord() {
    const std::size_t from = at_;
    while (at_ < text_.size() && IsWordPart(text_[at_])) {
      ++at_;
    }
    return text_.substr(from, at_ - from);
  }

  /// Takes the "!" after a sheet's name.
  bool TakeSheet(const std::string& name) {
    if (at_ >= text_.size() || text_[at_] != '!') {
      return false;
    }
    sheet_ = name;
    out_ += '!';
    ++at_;
    return true;
  }

  void EndReference() {
    sheet_.clear();
    foreign_ = false;
  }

  void Word() {
    const std::string_view word = NextWord();
    if (at_ < text_.size() && text_[at_] == '!') {
      out_ += word;
      TakeSheet(std::string(word));
      return;
    }
    const bool call = at_ < text_.size() && text_[at_] == '(';
    const auto first = call || foreign_ || !wanted_(sheet_) ? std::nullopt : ReadRef(word);
    if (!first) {
      out_ += word;
    } else {
      Reference(word, *first);
    }
    EndReference();
  }

  void Reference(std::string_view word, const RefWord& first) {
    const std::size_t colon = at_;
    if (at_ < text_.size() && text_[at_] == ':') {
      ++at_;
      const auto last = ReadRef(NextWord());
      if (last && last->whole_row == first.whole_row) {
        Put(first, RefEnd::kFirst);
        out_ += ':';
        Put(*last, RefEnd::kLast);
        return;
      }
      at_ = colon;
    }
    if (first.whole_row) {
      out_ += word;  // a plain number
    } else {
      Put(first, RefEnd::kSingle);
    }
  }

  void Put(const RefWord& ref, RefEnd end) {
    out_ += ref.before;
    out_ += std::to_string(map_(ref.row, end, ref.absolute));
  }

  std::string_view text_;
  const SheetTest& wanted_;
  const RowMap& map_;
  std::string out_;
  std::string sheet_;
  bool foreign_ = false;  ///< in another workbook
  std::size_t at_ = 0;
};

}  // namespace

std::string ColumnName(int column) {
  std::string name;
  for (; column > 0; column = (column - 1) / kLetters) {
    name.insert(name.begin(), static_cast<char>('A' + (column - 1) % kLetters));
  }
  return name;
}

std::string CellName(const CellPlace& place) {
  return ColumnName(place.column) + std::to_string(place.row);
}

std::optional<CellPlace> ParseCell(std::string_view text) {
  const auto ref = ReadRef(text);
  if (!ref || ref->whole_row) {
    return std::nullopt;
  }
  CellPlace place{ref->row, 0};
  for (const char c : ref->before) {
    if (c != '$') {
      place.column =
          place.column * kLetters + std::toupper(static_cast<unsigned char>(c)) - 'A' + 1;
    }
  }
  return place;
}

std::optional<SheetCell> ParseSheetCell(std::string_view text) {
  const std::size_t mark = text.rfind('!');
  if (mark == std::string_view::npos) {
    return std::nullopt;
  }
  std::string sheet(text.substr(0, mark));
  if (sheet.size() >= 2 && sheet.front() == '\'' && sheet.back() == '\'') {
    sheet = sheet.substr(1, sheet.size() - 2);
    for (std::size_t at = 0; (at = sheet.find("''", at)) != std::string::npos; ++at) {
      sheet.erase(at, 1);
    }
  }
  const std::string_view cells = text.substr(mark + 1);
  const auto cell = ParseCell(cells.substr(0, cells.find(':')));
  return cell ? std::optional(SheetCell{sheet, *cell}) : std::nullopt;
}

std::string MapReferences(std::string_view formula, const SheetTest& wanted, const RowMap& map) {
  return Rewriter(formula, wanted, map).Run();
}

int BlockShift::Map(int row, RefEnd end) const {
  if (row < first) {
    return row;
  }
  if (row > last) {
    return row + count - (last - first + 1);
  }
  const int new_last = std::max(first, first + count - 1);
  switch (end) {
    case RefEnd::kFirst:
      return first;
    case RefEnd::kLast:
      return new_last;
    case RefEnd::kSingle:
      break;
  }
  return std::min(row, new_last);
}

}  // namespace quorvane::reporting
