#pragma once

#include "core/files/TextTable.h"
#include "documents/PrintedText.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::paper {

/// A word of a printed line, UTF-8, and its place from the left edge of the page in points.
struct Word {
  std::string text;
  double left = 0;
  double right = 0;
};

/// A line of a printed page, from left to right. What depositories and brokers print around the
/// words is taken off: soft hyphens, marks such as "@" and "##", words in Devanagari, letters that
/// were printed twice, and blanks within a number.
struct Line {
  std::size_t number = 0;  ///< from 1 on, over all pages
  std::vector<Word> words;

  /// The words with a blank between them.
  std::string Text() const;
};

/// The lines of all pages. Words whose middles are at about one height are one line.
std::vector<Line> LinesOf(const documents::PrintedText& text);

/// The lines of a plain text; a word's place follows from the letters before it.
std::vector<Line> LinesOf(std::string_view utf8);

/// The rows of a table, a cell a word.
std::vector<Line> LinesOf(const files::TextTable& table);

/// In capitals, ASCII letters only.
std::string Upper(std::string_view text);

/// In capitals and without what is neither letter nor digit at its ends: "Bal." is "BAL".
std::string TermOf(std::string_view word);

/// Whether a line in capitals has the phrase with no letter or digit next to it.
bool HasPhrase(std::string_view upper_line, std::string_view phrase);

/// A number as depositories and brokers print it: "7,56,360.00", ".196", "(20.00)", "-10", "₹5";
/// "--" and "-" are 0. nullopt for any other text.
std::optional<double> NumberOf(std::string_view word);

/// How many words at the end of a line are numbers; "NIL" and "N.A." count as such and are 0.
std::size_t TrailingNumbers(std::span<const Word> words);
double NumberOrZero(std::string_view word);

/// The ISIN in a word, which may have marks or a name around it ("NAME-EQ/INE001A01036"); empty
/// when there is none. Its check digit is not looked at.
std::string IsinIn(std::string_view word);

}  // namespace quorvane::paper
