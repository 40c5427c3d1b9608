#include "reporting/output/window/RepView.h"

#include "controls/ProgressDialog.h"
#include "reporting/output/WriteReport.h"
#include "reporting/output/window/PreviewWindow.h"

#include <QBuffer>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace quorvane::reporting {
namespace {

constexpr int kMessageMs = 3000;
const QString kPdf = QStringLiteral(".pdf");
constexpr std::string_view kMaskLetters = "0DKN1SPQT";  // in the order of the masks
constexpr char kOwnHeadings[] = "1";

QMdiArea* AreaAround(QWidget* widget) {
  while (widget != nullptr) {
    if (auto* area = qobject_cast<QMdiArea*>(widget)) {
      return area;
    }
    widget = widget->parentWidget();
  }
  return nullptr;
}

std::vector<ColumnGroup> GroupsOf(const QStringList& headings) {
  std::vector<ColumnGroup> groups;
  for (const QString& heading : headings) {
    if (!groups.empty() && groups.back().heading == heading) {
      ++groups.back().columns;
    } else {
      groups.push_back({heading, 1});
    }
  }
  return groups;
}

template <class Values, class Set>
void ForEachColumn(std::vector<Column>& columns, const Values& values, const Set& set) {
  const auto count = std::min(columns.size(), static_cast<std::size_t>(values.size()));
  for (std::size_t i = 0; i < count; ++i) {
    set(columns[i], values[static_cast<decltype(values.size())>(i)]);
  }
}

void SetAlignments(std::vector<Column>& columns, std::span<const std::int16_t> alignments) {
  ForEachColumn(columns, alignments, [](Column& column, std::int16_t alignment) {
    column.alignment = alignment == 1   ? Alignment::kRight
                       : alignment == 2 ? Alignment::kCentre
                                        : Alignment::kLeft;
  });
}

void SetMasks(std::vector<Column>& columns, const QString& masks) {
  ForEachColumn(columns, masks, [](Column& column, QChar letter) {
    const std::size_t at = kMaskLetters.find(letter.toLatin1());
    column.mask = at == std::string_view::npos ? Mask::kText : static_cast<Mask>(at);
  });
}

void AddOnce(QStringList& titles, const QString& title) {
  if (!title.isEmpty() && !titles.contains(title)) {
    titles.append(title);
  }
}

/// The line without the empty cells at its end.
std::vector<Cell> Trimmed(std::span<const Cell> line) {
  while (!line.empty() && std::holds_alternative<std::monostate>(line.back())) {
    line = line.first(line.size() - 1);
  }
  return {line.begin(), line.end()};
}

}  // namespace

QChar MaskLetter(Mask mask) {
  return QLatin1Char(kMaskLetters[static_cast<std::size_t>(mask)]);
}

void RepView::newreport() {
  document_ = {};
  document_.may_lie = may_lie_;
  below_ = false;
}

void RepView::createtable(const QString& columns, const QString& ruled) {
  const auto count = static_cast<std::size_t>(columns.size());
  below_ = columns.isEmpty();
  const bool goes_on = ruled != QLatin1String(kOwnHeadings) && !document_.tables.empty() &&
                       document_.tables.back().columns.size() == count;
  if (!below_ && !goes_on) {
    document_.tables.emplace_back().columns.resize(count);
  }
}

void RepView::WriteToReport(std::span<const Cell> cells, std::span<const std::int16_t> alignments,
                            std::span<const std::int32_t> widths, const QStringList& headings,
                            const QStringList& groups, RowKind kind, const QString& masks,
                            const QString& title, const QString& second_title,
                            const QString& table_title) {
  AddOnce(document_.titles, title);
  AddOnce(document_.titles, second_title);
  if (below_ || document_.tables.empty()) {
    WriteBesideTables(cells, table_title);
    return;
  }
  Table& table = document_.tables.back();
  const std::size_t count = table.columns.size();
  if (cells.size() % count != 0) {
    throw std::invalid_argument("a line of the report is not whole");
  }
  AddOnce(table.titles, table_title);
  SetAlignments(table.columns, alignments);
  SetMasks(table.columns, masks);
  ForEachColumn(table.columns, widths,
                [](Column& column, std::int32_t width) { column.weight = width; });
  ForEachColumn(table.columns, headings,
                [](Column& column, const QString& heading) { column.heading = heading; });
  if (!groups.isEmpty()) {
    table.groups = GroupsOf(groups);
  }
  for (std::size_t at = 0; at < cells.size(); at += count) {
    table.rows.push_back({.kind = kind, .cells = Trimmed(cells.subspan(at, count))});
  }
}

void RepView::WriteBesideTables(std::span<const Cell> cells, const QString& note) {
  if (!cells.empty()) {
    throw std::invalid_argument("no table of the report is open");
  }
  if (below_ && !note.isEmpty()) {
    document_.notes.append(note);
  }
}

QByteArray RepView::TakePages(QWidget* over) {
  controls::ProgressDialog progress(over);
  const ReportDocument document = std::exchange(document_, {});
  QByteArray pdf;
  QBuffer buffer(&pdf);
  buffer.open(QIODevice::WriteOnly);
  WritePdf(document, buffer, progress);
  return pdf;
}

PreviewWindow* RepView::ShowReport(QWidget* over) {
  const QStringList titles = document_.titles;
  return Open(titles, TakePages(over), over);
}

PreviewWindow* RepView::Open(const QStringList& titles, QByteArray pages, QWidget* over) {
  auto* preview = new PreviewWindow(desk_, titles.value(0), std::move(pages),
                                    QDir(folder_).filePath(FileStem(titles) + kPdf));
  const auto tell_page = [this](int page, int count) {
    if (status_bar_ != nullptr) {
      status_bar_->showMessage(PreviewWindow::tr("Page %1 of %2").arg(page).arg(count), kMessageMs);
    }
  };
  QObject::connect(preview, &PreviewWindow::PageShown, preview, tell_page);
  tell_page(1, preview->PageCount());
  if (QMdiArea* area = AreaAround(over)) {
    preview->OpenIn(*area);
    if (mode_ == 1) {
      preview->parentWidget()->showMaximized();
    }
  } else {
    preview->OpenModal(over);
  }
  return preview;
}

namespace {

constexpr std::size_t kMostCells = 10'000;    // of one block
constexpr RowKind kNoLines = RowKind::kData;  // of a block that only sets titles or columns

/// Writes one table of a finished report.
class TableWriter {
 public:
  TableWriter(RepView& writer, const Table& table) : writer_(writer), table_(table) {}

  void Write() {
    writer_.createtable(QString(static_cast<qsizetype>(table_.columns.size()), QLatin1Char('1')),
                        QLatin1String(kOwnHeadings));
    WriteColumns();
    for (const QString& title : table_.titles) {
      writer_.WriteToReport({}, {}, {}, {}, {}, kNoLines, {}, {}, {}, title);
    }
    for (const Row& row : table_.rows) {
      if (row.kind != kind_ || block_.size() >= kMostCells) {
        WriteBlock();
        kind_ = row.kind;
      }
      for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        block_.push_back(i < row.cells.size() ? row.cells[i] : Cell());
      }
    }
    WriteBlock();
  }

 private:
  void WriteColumns() {
    std::vector<std::int16_t> alignments;
    std::vector<std::int32_t> widths;
    QStringList headings;
    QString masks;
    for (const Column& column : table_.columns) {
      alignments.push_back(static_cast<std::int16_t>(AlignmentOf(column)));
      widths.push_back(column.weight);
      headings << column.heading;
      masks += MaskLetter(column.mask);
    }
    writer_.WriteToReport({}, alignments, widths, headings, GroupTexts(), kNoLines, masks, {}, {},
                          {});
  }

  QStringList GroupTexts() const {
    QStringList texts;
    for (const ColumnGroup& group : table_.groups) {
      texts += QStringList(static_cast<qsizetype>(group.columns), group.heading);
    }
    return texts;
  }

  void WriteBlock() {
    writer_.WriteToReport(block_, {}, {}, {}, {}, kind_, {}, {}, {}, {});
    block_.clear();
  }

  RepView& writer_;
  const Table& table_;
  RowKind kind_ = RowKind::kData;
  std::vector<Cell> block_;
};

}  // namespace

PreviewWindow* HandOver(const ReportDocument& document, RepView& writer, QWidget* over) {
  writer.setcol130(document.may_lie ? 1 : 0);
  writer.newreport();
  for (const QString& title : document.titles) {
    writer.WriteToReport({}, {}, {}, {}, {}, kNoLines, {}, title, {}, {});
  }
  for (const Table& table : document.tables) {
    TableWriter(writer, table).Write();
  }
  writer.createtable({}, {});
  for (const QString& note : document.notes) {
    writer.WriteToReport({}, {}, {}, {}, {}, kNoLines, {}, {}, {}, note);
  }
  return writer.ShowReport(over);
}

}  // namespace quorvane::reporting
