#include "reporting/output/XlsxWriter.h"

#include "reporting/output/ColumnFit.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <stdexcept>

namespace quorvane::reporting {
namespace {

constexpr int kStepRows = 1000;
constexpr int kEpochDays = 25569;     // 1970-01-01 as a workbook counts days
constexpr int kFirstSafeDay = 61;     // the format counts a day too many before 01/03/1900
constexpr double kWidest = 50;        // letters
constexpr double kColumnPadding = 2;  // letters
constexpr std::uint8_t kPaperA4 = 9;
constexpr lxw_color_t kLineColor = 0x9AA4B0;
constexpr lxw_color_t kHeadingFill = 0xE8EEF6;
constexpr lxw_color_t kNetTotalFill = 0xF3F5F8;

void Check(lxw_error error) {
  if (error != LXW_NO_ERROR) {
    throw std::runtime_error(std::string("the workbook cannot be written: ") + lxw_strerror(error));
  }
}

const char* NumberFormat(Mask mask) {
  switch (mask) {
    case Mask::kAmount:
    case Mask::kSummary:
    case Mask::kQuantity:
      return "#0.00";
    case Mask::kPercent:
      return "#0.000";
    case Mask::kThousands:
      return "###,###.00";
    case Mask::kText:
    case Mask::kDate:
    case Mask::kNumber:
      break;
  }
  return nullptr;
}

std::uint8_t AlignmentOf(Alignment alignment) {
  constexpr std::array kAlignments{LXW_ALIGN_LEFT, LXW_ALIGN_RIGHT, LXW_ALIGN_CENTER};
  return static_cast<std::uint8_t>(kAlignments[static_cast<std::size_t>(alignment)]);
}

bool IsDate(const Cell& cell) {
  return std::holds_alternative<text::Date>(cell);
}

/// The formats of a table's cells: one a kind of row and column, for numbers and for dates.
class CellFormats {
 public:
  CellFormats(lxw_workbook* book, const Table& table) {
    for (const RowKind kind :
         {RowKind::kGroup, RowKind::kData, RowKind::kTotal, RowKind::kNetTotal}) {
      for (const Column& column : table.columns) {
        Of(kind).push_back({Make(book, kind, column, false), Make(book, kind, column, true)});
      }
    }
  }

  lxw_format* For(RowKind kind, std::size_t column, bool date) {
    const auto& pair = Of(kind)[column];
    return date ? pair.date : pair.plain;
  }

 private:
  struct Pair {
    lxw_format* plain = nullptr;
    lxw_format* date = nullptr;
  };

  std::vector<Pair>& Of(RowKind kind) { return formats_[static_cast<std::size_t>(kind)]; }

  static lxw_format* Make(lxw_workbook* book, RowKind kind, const Column& column, bool date) {
    lxw_format* format = workbook_add_format(book);
    format_set_align(format,
                     AlignmentOf(kind == RowKind::kGroup ? Alignment::kLeft : column.alignment));
    format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
    if (column.mask == Mask::kText && kind != RowKind::kGroup) {
      format_set_text_wrap(format);
    }
    format_set_border(format, LXW_BORDER_THIN);
    format_set_border_color(format, kLineColor);
    if (column.alignment == Alignment::kLeft && kind != RowKind::kGroup) {
      format_set_indent(format, 1);
    }
    if (kind != RowKind::kData) {
      format_set_bold(format);
    }
    if (kind == RowKind::kNetTotal) {
      format_set_top(format, LXW_BORDER_MEDIUM);
      format_set_bottom(format, LXW_BORDER_MEDIUM);
      format_set_bg_color(format, kNetTotalFill);
    }
    if (kind == RowKind::kGroup) {
      format_set_left(format, LXW_BORDER_NONE);
      format_set_right(format, LXW_BORDER_NONE);
    }
    if (date) {
      format_set_num_format(format, "dd/mm/yyyy");
    } else if (const char* number = NumberFormat(column.mask)) {
      format_set_num_format(format, number);
    }
    return format;
  }

  std::array<std::vector<Pair>, 4> formats_;
};

class SheetWriter {
 public:
  SheetWriter(lxw_workbook* book, const ReportDocument& document, Progress& progress)
      : book_(book),
        sheet_(workbook_add_worksheet(book, nullptr)),
        document_(document),
        progress_(progress),
        shares_headings_(SharesHeadings(document)) {
    for (const Table& table : document.tables) {
      columns_ = std::max(columns_, table.columns.size());
    }
    heading_ = workbook_add_format(book);
    format_set_bold(heading_);
    format_set_align(heading_, LXW_ALIGN_CENTER);
    format_set_align(heading_, LXW_ALIGN_VERTICAL_CENTER);
    format_set_text_wrap(heading_);
    format_set_border(heading_, LXW_BORDER_MEDIUM);
    format_set_bg_color(heading_, kHeadingFill);
    bold_ = workbook_add_format(book);
    format_set_bold(bold_);
  }

  void Write() {
    FitColumns();
    WriteTitles();
    if (shares_headings_) {
      ++row_;
      WriteHeadings(document_.tables.front());
    }
    for (const Table& table : document_.tables) {
      WriteTable(table);
    }
    ++row_;
    for (const QString& note : document_.notes) {
      Text(row_++, 0, note, nullptr);
    }
    SetUpPage();
  }

 private:
  void FitColumns() {
    widths_.assign(columns_, 0);
    for (const Table& table : document_.tables) {
      const std::vector<int> letters = LetterWidths(table);
      for (std::size_t i = 0; i < letters.size(); ++i) {
        widths_[i] = std::max(widths_[i], letters[i]);
      }
    }
    for (std::size_t i = 0; i < columns_; ++i) {
      const auto column = static_cast<lxw_col_t>(i);
      const double width = std::min(kWidest, widths_[i] + kColumnPadding);
      Check(worksheet_set_column(sheet_, column, column, width, nullptr));
    }
  }

  void WriteTitles() {
    constexpr double kLarge = 14;
    constexpr double kMedium = 11;
    for (const QString& title : document_.titles) {
      lxw_format* format = workbook_add_format(book_);
      format_set_bold(format);
      format_set_align(format, LXW_ALIGN_CENTER);
      format_set_font_size(format, row_ == 0 ? kLarge : kMedium);
      Merged(row_, 0, columns_, title, format);
      ++row_;
    }
  }

  void WriteTable(const Table& table) {
    ++row_;
    for (const QString& title : table.titles) {
      Text(row_++, 0, title, bold_);
    }
    if (!shares_headings_) {
      WriteHeadings(table);
    }
    CellFormats formats(book_, table);
    for (const Row& row : table.rows) {
      if (row.kind != RowKind::kGap) {
        WriteRow(row, formats, table);
      }
      ++row_;
      if (++done_ % kStepRows == 0) {
        progress_.Step(done_);
        progress_.ThrowIfCancelled();
      }
    }
  }

  void WriteHeadings(const Table& table) {
    first_heading_ = row_;
    std::size_t column = 0;
    for (const ColumnGroup& group : table.groups) {
      const std::size_t count = std::min(group.columns, table.columns.size() - column);
      Merged(row_, column, count, group.heading, heading_);
      column += count;
    }
    row_ += table.groups.empty() ? 0 : 1;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      Text(row_, i, table.columns[i].heading, heading_);
    }
    last_heading_ = row_++;
  }

  void WriteRow(const Row& row, CellFormats& formats, const Table& table) {
    const Cell empty;
    const bool group = row.kind == RowKind::kGroup;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const bool given = i < row.cells.size() && !(group && i > 0);
      const Cell& cell = given ? row.cells[i] : empty;
      WriteCell(i, cell, table.columns[i].mask, formats.For(row.kind, i, IsDate(cell)));
    }
  }

  void WriteCell(std::size_t column, const Cell& cell, Mask mask, lxw_format* format) {
    const auto* number = std::get_if<double>(&cell);
    const auto* date = std::get_if<text::Date>(&cell);
    const auto at = static_cast<lxw_col_t>(column);
    const auto day = date == nullptr ? 0 : date->time_since_epoch().count() + kEpochDays;
    if (number != nullptr && std::isfinite(*number)) {
      Check(worksheet_write_number(sheet_, row_, at, ShownNumber(*number, mask), format));
    } else if (day >= kFirstSafeDay) {
      Check(worksheet_write_number(sheet_, row_, at, static_cast<double>(day), format));
    } else {
      Text(row_, column, CellText(cell, mask), format);
    }
  }

  void Text(lxw_row_t row, std::size_t column, const QString& text, lxw_format* format) {
    const auto at = static_cast<lxw_col_t>(column);
    if (text.isEmpty()) {
      Check(format == nullptr ? LXW_NO_ERROR : worksheet_write_blank(sheet_, row, at, format));
    } else {
      Check(worksheet_write_string(sheet_, row, at, text.toUtf8().constData(), format));
    }
  }

  void Merged(lxw_row_t row, std::size_t column, std::size_t count, const QString& text,
              lxw_format* format) {
    if (count < 2) {
      Text(row, column, text, format);
      return;
    }
    Check(worksheet_merge_range(sheet_, row, static_cast<lxw_col_t>(column), row,
                                static_cast<lxw_col_t>(column + count - 1),
                                text.toUtf8().constData(), format));
  }

  // A heading can stand still or be repeated only where there is one.
  void SetUpPage() {
    if (document_.tables.size() == 1 || shares_headings_) {
      worksheet_freeze_panes(sheet_, last_heading_ + 1, 0);
      Check(worksheet_repeat_rows(sheet_, first_heading_, last_heading_));
    }
    if (IsWide(document_, widths_)) {
      worksheet_set_landscape(sheet_);
    }
    worksheet_set_paper(sheet_, kPaperA4);
    worksheet_fit_to_pages(sheet_, 1, 0);
    worksheet_center_horizontally(sheet_);
    worksheet_gridlines(sheet_, LXW_HIDE_ALL_GRIDLINES);
    Check(worksheet_set_footer(sheet_, "&CPage &P of &N"));
  }

  lxw_workbook* book_;
  lxw_worksheet* sheet_;
  const ReportDocument& document_;
  Progress& progress_;
  bool shares_headings_;
  std::size_t columns_ = 1;
  std::vector<int> widths_;
  lxw_format* heading_ = nullptr;
  lxw_format* bold_ = nullptr;
  lxw_row_t row_ = 0;
  lxw_row_t first_heading_ = 0;
  lxw_row_t last_heading_ = 0;
  std::int64_t done_ = 0;
};

void CopyInto(QIODevice& out, const QString& path) {
  constexpr qint64 kBlock = 1 << 20;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    throw std::runtime_error("cannot read " + path.toStdString());
  }
  while (!file.atEnd()) {
    const QByteArray block = file.read(kBlock);
    if (out.write(block) != block.size()) {
      throw std::runtime_error("cannot write the workbook: " + out.errorString().toStdString());
    }
  }
}

}  // namespace

void WriteXlsx(const ReportDocument& document, QIODevice& out, Progress& progress) {
  const QTemporaryDir folder;
  if (!folder.isValid()) {
    throw std::runtime_error("cannot make a temporary folder: " +
                             folder.errorString().toStdString());
  }
  progress.Begin(QCoreApplication::translate("ReportOutput", "Writing the workbook"),
                 RowCount(document));
  const QString path = folder.filePath(QStringLiteral("report.xlsx"));
  QByteArray scratch = folder.path().toUtf8();
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  options.tmpdir = scratch.data();
  lxw_workbook* book = workbook_new_opt(path.toUtf8().constData(), &options);
  if (book == nullptr) {
    throw std::runtime_error("cannot make a workbook");
  }
  try {
    SheetWriter(book, document, progress).Write();
  } catch (...) {
    lxw_workbook_free(book);
    throw;
  }
  Check(workbook_close(book));
  CopyInto(out, path);
}

}  // namespace quorvane::reporting
