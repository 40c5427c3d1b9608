#include "core/text/Tr.h"
#include "reporting/output/WriteReport.h"
#include "reporting/output/XlsxSheet.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <stdexcept>

namespace quorvane::reporting {
namespace {

constexpr int kStepRows = 1000;
constexpr double kWidest = 50;        // letters
constexpr double kColumnPadding = 2;  // letters
constexpr std::uint8_t kPaperA4 = 9;

bool IsDate(const Cell& cell) {
  return std::holds_alternative<text::Date>(cell);
}

class SheetWriter {
 public:
  SheetWriter(lxw_workbook* book, const ReportDocument& document, Progress& progress)
      : book_(book),
        sheet_(workbook_add_worksheet(book, nullptr)),
        cells_(sheet_),
        document_(document),
        progress_(progress),
        shares_headings_(SharesHeadings(document)),
        heading_(HeadingFormat(book)) {
    for (const Table& table : document.tables) {
      columns_ = std::max(columns_, table.columns.size());
    }
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
      cells_.Text(row_++, 0, note, nullptr);
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
      CheckBook(worksheet_set_column(sheet_, column, column, width, nullptr));
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
      cells_.Merged(row_, 0, columns_, title, format);
      ++row_;
    }
  }

  void WriteTable(const Table& table) {
    ++row_;
    for (const QString& title : table.titles) {
      cells_.Text(row_++, 0, title, bold_);
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
      cells_.Merged(row_, column, count, group.heading, heading_);
      column += count;
    }
    row_ += table.groups.empty() ? 0 : 1;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      cells_.Text(row_, i, table.columns[i].heading, heading_);
    }
    last_heading_ = row_++;
  }

  void WriteRow(const Row& row, CellFormats& formats, const Table& table) {
    const Cell empty;
    const bool group = row.kind == RowKind::kGroup;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const bool given = i < row.cells.size() && !(group && i > 0);
      const Cell& cell = given ? row.cells[i] : empty;
      cells_.Put(row_, i, cell, table.columns[i].mask, formats.For(row.kind, i, IsDate(cell)));
    }
  }

  // A heading can stand still or be repeated only where there is one.
  void SetUpPage() {
    if (document_.tables.size() == 1 || shares_headings_) {
      worksheet_freeze_panes(sheet_, last_heading_ + 1, 0);
      CheckBook(worksheet_repeat_rows(sheet_, first_heading_, last_heading_));
    }
    if (IsWide(document_, widths_)) {
      worksheet_set_landscape(sheet_);
    }
    worksheet_set_paper(sheet_, kPaperA4);
    worksheet_fit_to_pages(sheet_, 1, 0);
    worksheet_center_horizontally(sheet_);
    worksheet_gridlines(sheet_, LXW_HIDE_ALL_GRIDLINES);
    CheckBook(worksheet_set_footer(sheet_, "&CPage &P of &N"));
  }

  lxw_workbook* book_;
  lxw_worksheet* sheet_;
  XlsxCells cells_;
  const ReportDocument& document_;
  Progress& progress_;
  bool shares_headings_;
  std::size_t columns_ = 1;
  std::vector<int> widths_;
  lxw_format* heading_;
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
  progress.Begin(Tr("ReportOutput", "Writing the workbook"), RowCount(document));
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
  CheckBook(workbook_close(book));
  CopyInto(out, path);
}

}  // namespace quorvane::reporting
