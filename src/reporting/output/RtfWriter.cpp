#include "reporting/output/RtfWriter.h"

#include "reporting/output/ColumnFit.h"

#include <QCoreApplication>

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <numeric>

namespace quorvane::reporting {
namespace {

constexpr int kStepRows = 1000;

// Lengths in twips, the 1440th part of an inch; type sizes in half points.
constexpr int kShortSide = 11906;
constexpr int kLongSide = 16838;
constexpr int kMargin = 720;
constexpr int kCellPadding = 60;
constexpr double kTwipsAFigure = 112;  // of the largest type
constexpr double kTwipsACapital = 128;
constexpr int kFewestLetters = 5;
constexpr int kMostLetters = 34;  // of a text; longer ones are broken into lines
constexpr int kLargestType = 18;
constexpr int kSmallestType = 10;
constexpr int kTitleType = 28;
constexpr int kSubtitleType = 20;

void AppendEscaped(std::string& out, const QString& text) {
  for (const QChar c : text) {
    const char16_t unit = c.unicode();
    if (unit == '\\' || unit == '{' || unit == '}') {
      out += '\\';
      out += static_cast<char>(unit);
    } else if (unit == '\n') {
      out += "\\line ";
    } else if (unit >= ' ' && unit < 0x7F) {
      out += static_cast<char>(unit);
    } else if (unit >= 0x80) {
      // The number is a signed 16-bit one; "?" is for readers that know no such letters.
      fmt::format_to(std::back_inserter(out), "\\u{}?", static_cast<std::int16_t>(unit));
    }
  }
}

const char* AlignmentWord(Alignment alignment) {
  switch (alignment) {
    case Alignment::kRight:
      return "\\qr";
    case Alignment::kCentre:
      return "\\qc";
    case Alignment::kLeft:
      break;
  }
  return "\\ql";
}

/// Where a table's columns end, and the size of its type.
struct TableShape {
  std::vector<int> ends;
  int type = kLargestType;
};

/// What the columns need in the largest type, without their padding. Names are mostly capitals,
/// which are wider than figures; a long one does not make everything else small.
std::vector<double> NeededWidths(const Table& table) {
  std::vector<double> widths;
  const std::vector<int> letters = LetterWidths(table);
  for (std::size_t i = 0; i < letters.size(); ++i) {
    const bool text = table.columns[i].mask == Mask::kText;
    const int most = text ? std::min(letters[i], kMostLetters) : letters[i];
    widths.push_back(std::max(most, kFewestLetters) * (text ? kTwipsACapital : kTwipsAFigure));
  }
  return widths;
}

/// Columns fill the width of the page; where they need more, the type gets smaller.
TableShape ShapeOf(const Table& table, int page_width) {
  const std::vector<double> needed = NeededWidths(table);
  const double total = std::max(1.0, std::accumulate(needed.begin(), needed.end(), 0.0));
  const double room =
      std::max<double>(1, page_width - 2 * kCellPadding * static_cast<int>(needed.size()));
  TableShape shape;
  shape.type =
      std::clamp(static_cast<int>(kLargestType * room / total), kSmallestType, kLargestType);
  double end = 0;
  for (const double width : needed) {
    end += width * room / total + 2 * kCellPadding;
    shape.ends.push_back(static_cast<int>(end));
  }
  return shape;
}

class Writer {
 public:
  Writer(const ReportDocument& document, Progress& progress)
      : document_(document), progress_(progress) {
    for (const Table& table : document.tables) {
      landscape_ = landscape_ || IsWide(document, LetterWidths(table));
    }
    width_ = (landscape_ ? kLongSide : kShortSide) - 2 * kMargin;
  }

  std::string Write() {
    Head();
    for (qsizetype i = 0; i < document_.titles.size(); ++i) {
      Paragraph("\\qc\\b", i == 0 ? kTitleType : kSubtitleType, document_.titles[i]);
    }
    for (const Table& table : document_.tables) {
      WriteTable(table, ShapeOf(table, width_));
    }
    Paragraph("\\ql", kLargestType, {});
    for (const QString& note : document_.notes) {
      Paragraph("\\ql", kLargestType, note);
    }
    out_ += "}\n";
    return std::move(out_);
  }

 private:
  void Head() {
    out_ += "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}\n";
    fmt::format_to(std::back_inserter(out_),
                   "\\paperw{}\\paperh{}\\margl{}\\margr{}\\margt{}\\margb{}{}\n",
                   landscape_ ? kLongSide : kShortSide, landscape_ ? kShortSide : kLongSide,
                   kMargin, kMargin, kMargin, kMargin, landscape_ ? "\\landscape" : "");
    out_ +=
        "{\\footer\\pard\\qc\\f0\\fs16 Page {\\field{\\*\\fldinst PAGE}{\\fldrslt 1}} of "
        "{\\field{\\*\\fldinst NUMPAGES}{\\fldrslt 1}}\\par}\n";
  }

  void Paragraph(const char* words, int type, const QString& text) {
    fmt::format_to(std::back_inserter(out_), "{{\\pard{}\\f0\\fs{} ", words, type);
    AppendEscaped(out_, text);
    out_ += "\\par}\n";
  }

  void WriteTable(const Table& table, const TableShape& shape) {
    Paragraph("\\ql", kSmallestType, {});
    for (const QString& title : table.titles) {
      Paragraph("\\ql\\keepn\\b", kSubtitleType, title);
    }
    WriteHeadings(table, shape);
    for (const Row& row : table.rows) {
      WriteRow(table, shape, row);
      if (++done_ % kStepRows == 0) {
        progress_.Step(done_);
        progress_.ThrowIfCancelled();
      }
    }
  }

  void WriteHeadings(const Table& table, const TableShape& shape) {
    if (!table.groups.empty()) {
      std::vector<int> ends;
      std::size_t column = 0;
      for (const ColumnGroup& group : table.groups) {
        column = std::min(column + group.columns, shape.ends.size());
        ends.push_back(shape.ends[column - 1]);
      }
      BeginRow(ends, "\\trhdr", true);
      for (const ColumnGroup& group : table.groups) {
        WriteCell("\\qc\\b", shape.type, group.heading);
      }
      EndRow();
    }
    BeginRow(shape.ends, "\\trhdr", true);
    for (const Column& column : table.columns) {
      WriteCell("\\qc\\b", shape.type, column.heading);
    }
    EndRow();
  }

  void WriteRow(const Table& table, const TableShape& shape, const Row& row) {
    if (row.kind == RowKind::kGroup || row.kind == RowKind::kGap) {
      BeginRow({shape.ends.back()}, "", false);
      WriteCell("\\ql\\keepn\\b", shape.type, GroupText(row));
      EndRow();
      return;
    }
    const bool total = row.kind != RowKind::kData;
    BeginRow(shape.ends, "", total);
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const Column& column = table.columns[i];
      const std::string words = std::string(AlignmentWord(column.alignment)) + (total ? "\\b" : "");
      WriteCell(words.c_str(), shape.type,
                i < row.cells.size() ? CellText(row.cells[i], column.mask) : QString());
    }
    EndRow();
  }

  void BeginRow(const std::vector<int>& ends, const char* words, bool ruled) {
    fmt::format_to(std::back_inserter(out_), "\\trowd\\trgaph{}\\trkeep\\trqc{}", kCellPadding,
                   words);
    for (const int end : ends) {
      out_ += ruled ? "\\clbrdrt\\brdrs\\brdrw10\\clbrdrb\\brdrs\\brdrw10"
                    : "\\clbrdrb\\brdrhair\\brdrw5";
      fmt::format_to(std::back_inserter(out_), "\\cellx{}", end);
    }
    out_ += '\n';
  }

  void WriteCell(const char* words, int type, const QString& text) {
    fmt::format_to(std::back_inserter(out_), "{{\\pard\\intbl\\sb20\\sa20{}\\f0\\fs{} ", words,
                   type);
    AppendEscaped(out_, text);
    out_ += "\\cell}";
  }

  void EndRow() { out_ += "\\row\n"; }

  const ReportDocument& document_;
  Progress& progress_;
  bool landscape_ = false;
  int width_ = 0;
  std::string out_;
  std::int64_t done_ = 0;
};

}  // namespace

std::string WriteRtf(const ReportDocument& document, Progress& progress) {
  progress.Begin(QCoreApplication::translate("ReportOutput", "Writing the document"),
                 RowCount(document));
  return Writer(document, progress).Write();
}

}  // namespace quorvane::reporting
