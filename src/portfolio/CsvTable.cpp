#include "portfolio/CsvTable.h"

#include "core/lookups/Directory.h"
#include "core/text/Amounts.h"

#include <QUtf8StringView>

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

namespace quorvane::portfolio {
namespace {

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Characters, not bytes: continuation bytes of UTF-8 do not count.
std::size_t CharacterCount(std::string_view utf8) {
  return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

bool IsText(std::string_view bytes) {
  return QUtf8StringView(bytes.data(), static_cast<qsizetype>(bytes.size())).isValidUtf8() &&
         bytes.find('\0') == std::string_view::npos;
}

/// Counted from 1; 0 when all of it is UTF-8 text.
std::size_t FirstLineThatIsNoText(std::string_view content) {
  if (IsText(content)) {
    return 0;
  }
  std::size_t line = 1;
  std::size_t start = 0;
  std::size_t end = content.find('\n');
  while (end != std::string_view::npos && IsText(content.substr(start, end - start))) {
    ++line;
    start = end + 1;
    end = content.find('\n', start);
  }
  return line;
}

}  // namespace

CsvTable::CsvTable(const FileLayout& layout, std::string content, ErrorList& errors)
    : layout_(layout), content_(std::move(content)), reader_(content_), errors_(errors) {
  places_.assign(layout_.columns.size(), -1);
  if (const std::size_t line = FirstLineThatIsNoText(content_); line > 0) {
    errors_.Add(layout_.name, line, "", "expected UTF-8 text");
    usable_ = false;
    return;
  }
  ReadHeader();
}

void CsvTable::ReadHeader() {
  try {
    usable_ = reader_.Next();
  } catch (const text::CsvError& error) {
    errors_.Add(layout_.name, error.Line(), "", error.what());
    usable_ = false;
    return;
  }
  if (!usable_) {
    errors_.Add(layout_.name, 1, "", "expected a header row, found an empty file");
    return;
  }
  header_fields_ = reader_.Fields().size();
  for (std::size_t i = 0; i < header_fields_; ++i) {
    const std::string name = lookups::Folded(Trimmed(reader_.Fields()[i]));
    const auto found =
        std::find_if(layout_.columns.begin(), layout_.columns.end(),
                     [&](const ColumnLayout& column) { return column.name == name; });
    const auto place = static_cast<std::size_t>(found - layout_.columns.begin());
    if (found == layout_.columns.end() || places_[place] >= 0) {
      errors_.Add(layout_.name, 1, Trimmed(reader_.Fields()[i]),
                  found == layout_.columns.end() ? "unknown column" : "the column stands twice");
      usable_ = false;
      continue;
    }
    places_[place] = static_cast<int>(i);
  }
  for (std::size_t i = 0; i < places_.size(); ++i) {
    if (layout_.columns[i].required && places_[i] < 0) {
      errors_.Add(layout_.name, 1, layout_.columns[i].name, "expected this column, it is missing");
      usable_ = false;
    }
  }
}

bool CsvTable::Next() {
  if (!usable_ || errors_.Full()) {
    return false;
  }
  try {
    if (!reader_.Next()) {
      return false;
    }
  } catch (const text::CsvError& error) {
    errors_.Add(layout_.name, error.Line(), "", error.what());
    return usable_ = false;
  }
  if (reader_.Fields().size() != header_fields_) {
    errors_.Add(
        layout_.name, reader_.Line(), "",
        fmt::format("expected {} fields, found {}", header_fields_, reader_.Fields().size()));
    return Next();
  }
  return true;
}

std::string_view CsvTable::Raw(std::size_t column) const {
  const int place = places_[column];
  return place < 0 ? std::string_view() : reader_.Fields()[static_cast<std::size_t>(place)];
}

void CsvTable::Fail(std::size_t column, std::string message) {
  errors_.Add(layout_.name, reader_.Line(), layout_.columns[column].name, std::move(message));
}

void CsvTable::Expected(std::size_t column, std::string_view what) {
  const std::string_view found = Trimmed(Raw(column));
  Fail(column, found.empty() ? fmt::format("expected {}, found nothing", what)
                             : fmt::format("expected {}, found {}", what, Quoted(found)));
}

std::string_view CsvTable::Text(std::size_t column) {
  const ColumnLayout& layout = layout_.columns[column];
  const std::string_view text = Raw(column);
  if (layout.required && Trimmed(text).empty()) {
    Expected(column, "a text");
  } else if (text.size() > layout.most_characters &&
             CharacterCount(text) > layout.most_characters) {
    Fail(column, fmt::format("expected at most {} characters, found {}", layout.most_characters,
                             CharacterCount(text)));
  }
  return text;
}

std::optional<double> CsvTable::OptionalNumber(std::size_t column) {
  const std::string_view text = Trimmed(Raw(column));
  if (text.empty()) {
    if (layout_.columns[column].required) {
      Expected(column, "a number");
    }
    return std::nullopt;
  }
  const std::optional<double> value = text::ParseNumber(text);
  if (!value || *value < 0) {
    Expected(column, "a number of 0 or more");
    return std::nullopt;
  }
  return value;
}

double CsvTable::Number(std::size_t column) {
  return OptionalNumber(column).value_or(0);
}

double CsvTable::PositiveNumber(std::size_t column) {
  const std::optional<double> value = text::ParseNumber(Trimmed(Raw(column)));
  if (!value || *value <= 0) {
    Expected(column, "a number above 0");
    return 0;
  }
  return *value;
}

text::Shares CsvTable::Shares(std::size_t column) {
  constexpr double kMost = 1e12;
  const double typed = PositiveNumber(column);
  const text::Shares shares(typed);
  if (typed > 0 && (!shares || typed > kMost)) {
    Expected(column, "a number of shares of at most twelve digits and six decimals");
  }
  return shares;
}

std::optional<text::Date> CsvTable::DateOf(std::size_t column) {
  const std::string_view text = Trimmed(Raw(column));
  if (text.empty() && !layout_.columns[column].required) {
    return std::nullopt;
  }
  const auto date = text::ParseDmy(text);
  if (!date) {
    Expected(column, "a date dd/mm/yyyy");
  }
  return date;
}

std::optional<text::FinancialYear> CsvTable::YearOf(std::size_t column) {
  const auto year = text::FinancialYear::Parse(Trimmed(Raw(column)));
  if (!year) {
    Expected(column, "a financial year such as 2011-12");
  }
  return year;
}

bool CsvTable::Flag(std::size_t column) {
  const std::string_view text = Trimmed(Raw(column));
  if (!text.empty() && text != "0" && text != "1") {
    Expected(column, "0 or 1");
  }
  return text == "1";
}

bool CsvTable::IsWord(std::size_t column, std::string_view word) const {
  return lookups::Folded(Trimmed(Raw(column))) == lookups::Folded(word);
}

int CsvTable::Choice(std::size_t column, std::span<const std::string_view> words) {
  const std::string wanted = lookups::Folded(Trimmed(Raw(column)));
  if (wanted.empty() && !layout_.columns[column].required) {
    return -1;
  }
  int place = 0;
  for (const std::string_view word : words) {
    if (lookups::Folded(word) == wanted) {
      return place;
    }
    ++place;
  }
  Expected(column, fmt::format("one of {}", fmt::join(words, ", ")));
  return -1;
}

}  // namespace quorvane::portfolio
