#pragma once

#include <QString>

#include <string>
#include <vector>

namespace quorvane::reporting {

/// Rich text as its code words: a head, paragraphs and rows of cells. `words` are the code words of
/// a paragraph ("\\qc\\b"). Lengths are in twips, the 1440th part of an inch, type sizes in half
/// points. Texts come out as pure ASCII.
class RtfCode {
 public:
  static constexpr int kCellPadding = 60;

  /// The width between the margins of an A4 page.
  static int TextWidth(bool landscape);

  /// Comes first: the page, its margins and the page number at its foot.
  void Head(bool landscape);

  /// A line or more of text over the whole width.
  void Paragraph(const char* words, int type, const QString& text);

  /// A row of a table with a cell for each of `ends`, its right edge; `ruled` gives it lines above
  /// and below. A Cell for each follows, then EndRow.
  void BeginRow(const std::vector<int>& ends, const char* words, bool ruled);
  void Cell(const char* words, int type, const QString& text);

  /// Closes the row.
  void EndRow() { out_ += "\\row\n"; }

  /// Ends the text and returns it.
  std::string Take();

 private:
  std::string out_;
};

}  // namespace quorvane::reporting
