#include "portfolio/notes/NoteTable.h"

#include "core/text/Amounts.h"
#include "core/text/Dates.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>

namespace quorvane::notes {
namespace {

using files::TextRow;
using paper::Line;
using paper::Word;

constexpr std::array<std::string_view, 7> kFacts{
    "CONTRACT NOTE NO", "CONTRACT NOTE NUMBER", "CONTRACT NO",      "CONTRACT NUMBER",
    "TRADE DATE",       "SETTLEMENT NO",        "SETTLEMENT NUMBER"};

/// In capitals, without the colon behind it.
std::string LabelOf(const std::string& cell) {
  return paper::TermOf(cell);
}

bool HasDigit(const std::string& cell) {
  return std::ranges::any_of(cell, [](unsigned char one) { return std::isdigit(one) != 0; });
}

bool IsFact(const std::string& label) {
  return std::ranges::any_of(kFacts, [&](std::string_view fact) { return label.ends_with(fact); });
}

/// The day of a workbook's number for it, counted from 30 December 1899; any other text unchanged.
std::string DayText(const std::string& cell) {
  constexpr double kFirst = 30'000;  // in 1982
  constexpr double kLast = 80'000;   // in 2119
  const auto number = text::ParseNumber(cell);
  if (!number || *number < kFirst || *number > kLast) {
    return cell;
  }
  const text::Date day =
      *text::MakeDate(30, 12, 1899) + std::chrono::days(static_cast<int>(*number));
  return text::FormatDmy(day).toStdString();
}

/// A sign of rupees in a column of its own words says nothing.
bool IsRupeeSign(const Word& word) {
  const std::string term = paper::TermOf(word.text);
  return word.text == "\xE2\x82\xB9" || term == "RS" || term == "INR";
}

class TableLines {
 public:
  explicit TableLines(const files::TextTable& table) : table_(table) {}

  std::vector<Line> Take() {
    for (std::size_t i = 0; i < table_.rows.size(); ++i) {
      AddRow(table_.rows[i]);
      if (i + 1 < table_.rows.size()) {
        AddFactsBelow(table_.rows[i], table_.rows[i + 1]);
      }
    }
    return std::move(lines_);
  }

 private:
  void AddRow(const TextRow& row) {
    Line line{row.line, {}};
    std::string label;
    for (std::size_t column = 0; column < row.cells.size(); ++column) {
      const std::string& cell = row.cells[column];
      const bool is_day = label.ends_with("DATE");
      AddCell(line, column, is_day ? DayText(cell) : cell);
      label = cell.empty() ? label : LabelOf(cell);
    }
    AddLine(std::move(line));
  }

  /// Of headings that nothing with a digit follows in their row.
  void AddFactsBelow(const TextRow& row, const TextRow& below) {
    for (std::size_t column = 0; column < std::min(row.cells.size(), below.cells.size());
         ++column) {
      const std::string label = LabelOf(row.cells[column]);
      const auto next =
          std::find_if(row.cells.begin() + static_cast<std::ptrdiff_t>(column) + 1, row.cells.end(),
                       [](const std::string& cell) { return !cell.empty(); });
      const bool beside = next != row.cells.end() && HasDigit(*next);
      if (IsFact(label) && !beside && HasDigit(below.cells[column])) {
        Line line{below.line, {}};
        AddCell(line, column, row.cells[column]);
        AddCell(line, column,
                label.ends_with("DATE") ? DayText(below.cells[column]) : below.cells[column]);
        AddLine(std::move(line));
      }
    }
  }

  static void AddCell(Line& line, std::size_t column, const std::string& cell) {
    for (Line& part : paper::LinesOf(std::string_view(cell))) {
      for (Word& word : part.words) {
        word.left = word.right = static_cast<double>(column);
        if (!IsRupeeSign(word) || part.words.size() == 1) {
          line.words.push_back(std::move(word));
        }
      }
    }
  }

  void AddLine(Line line) {
    if (!line.words.empty()) {
      lines_.push_back(std::move(line));
    }
  }

  const files::TextTable& table_;
  std::vector<Line> lines_;
};

}  // namespace

std::vector<Line> LinesOfTable(const files::TextTable& table) {
  return TableLines(table).Take();
}

}  // namespace quorvane::notes
