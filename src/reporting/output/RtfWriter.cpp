#include "core/text/Tr.h"
#include "reporting/output/RtfCode.h"
#include "reporting/output/WriteReport.h"

#include <algorithm>
#include <numeric>

namespace quorvane::reporting {
namespace {

constexpr int kStepRows = 1000;

// Lengths in twips, the 1440th part of an inch; type sizes in half points.
constexpr double kTwipsAFigure = 112;  // of the largest type
constexpr double kTwipsACapital = 128;
constexpr int kFewestLetters = 5;
constexpr int kMostLetters = 34;  // of a text; longer ones are broken into lines
constexpr int kLargestType = 18;
constexpr int kSmallestType = 10;
constexpr int kTitleType = 28;
constexpr int kSubtitleType = 20;

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
      std::max<double>(1, page_width - 2 * RtfCode::kCellPadding * static_cast<int>(needed.size()));
  TableShape shape;
  shape.type =
      std::clamp(static_cast<int>(kLargestType * room / total), kSmallestType, kLargestType);
  double end = 0;
  for (const double width : needed) {
    end += width * room / total + 2 * RtfCode::kCellPadding;
    shape.ends.push_back(static_cast<int>(end));
  }
  return shape;
}

/// Writes a document table by table.
class Writer {
 public:
  Writer(const ReportDocument& document, Progress& progress)
      : document_(document), progress_(progress) {
    for (const Table& table : document.tables) {
      landscape_ = landscape_ || IsWide(document, LetterWidths(table));
    }
    width_ = RtfCode::TextWidth(landscape_);
  }

  std::string Write() {
    code_.Head(landscape_);
    for (qsizetype i = 0; i < document_.titles.size(); ++i) {
      code_.Paragraph("\\qc\\b", i == 0 ? kTitleType : kSubtitleType, document_.titles[i]);
    }
    for (const Table& table : document_.tables) {
      WriteTable(table, ShapeOf(table, width_));
    }
    code_.Paragraph("\\ql", kLargestType, {});
    for (const QString& note : document_.notes) {
      code_.Paragraph("\\ql", kLargestType, note);
    }
    return code_.Take();
  }

 private:
  void WriteTable(const Table& table, const TableShape& shape) {
    code_.Paragraph("\\ql", kSmallestType, {});
    for (const QString& title : table.titles) {
      code_.Paragraph("\\ql\\keepn\\b", kSubtitleType, title);
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
      code_.BeginRow(ends, "\\trhdr", true);
      for (const ColumnGroup& group : table.groups) {
        code_.Cell("\\qc\\b", shape.type, group.heading);
      }
      code_.EndRow();
    }
    code_.BeginRow(shape.ends, "\\trhdr", true);
    for (const Column& column : table.columns) {
      code_.Cell("\\qc\\b", shape.type, column.heading);
    }
    code_.EndRow();
  }

  void WriteRow(const Table& table, const TableShape& shape, const Row& row) {
    if (row.kind == RowKind::kGroup || row.kind == RowKind::kGap) {
      code_.BeginRow({shape.ends.back()}, "", false);
      code_.Cell("\\ql\\keepn\\b", shape.type, GroupText(row));
      code_.EndRow();
      return;
    }
    const bool total = row.kind != RowKind::kData;
    code_.BeginRow(shape.ends, "", total);
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const Column& column = table.columns[i];
      const std::string words =
          std::string(AlignmentWord(AlignmentOf(column))) + (total ? "\\b" : "");
      code_.Cell(words.c_str(), shape.type,
                 i < row.cells.size() ? CellText(row.cells[i], column.mask) : QString());
    }
    code_.EndRow();
  }

  const ReportDocument& document_;
  Progress& progress_;
  bool landscape_ = false;
  int width_ = 0;
  RtfCode code_;
  std::int64_t done_ = 0;
};

}  // namespace

std::string WriteRtf(const ReportDocument& document, Progress& progress) {
  progress.Begin(Tr("ReportOutput", "Writing the document"), RowCount(document));
  return Writer(document, progress).Write();
}

}  // namespace quorvane::reporting
