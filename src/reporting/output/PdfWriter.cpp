#include "reporting/output/PdfWriter.h"

#include "reporting/output/PageLayout.h"
#include "reporting/output/Typesetter.h"

#include <QCoreApplication>

#include <cairo-pdf.h>

#include <stdexcept>

namespace quorvane::reporting {
namespace {

constexpr double kThin = 0.4;
constexpr double kThick = 0.9;
constexpr double kHeadingShade = 0.93;
constexpr double kTotalShade = 0.965;
constexpr double kInk = 0;
constexpr double kFaintInk = 0.35;
constexpr double kHairShade = 0.82;
constexpr double kPadding = 1.5;

/// Where cairo's bytes go. An exception must not cross cairo, so that a failure is remembered.
struct Sink {
  QIODevice& out;
  bool failed = false;

  static cairo_status_t Write(void* self, const unsigned char* data, unsigned int length) {
    auto* sink = static_cast<Sink*>(self);
    const auto written = sink->out.write(reinterpret_cast<const char*>(data), length);
    sink->failed = sink->failed || written != static_cast<qint64>(length);
    return sink->failed ? CAIRO_STATUS_WRITE_ERROR : CAIRO_STATUS_SUCCESS;
  }
};

class PagePainter {
 public:
  PagePainter(const ReportDocument& document, const PageLayout& layout, Typesetter& typesetter,
              cairo_t* page)
      : document_(document), layout_(layout), typesetter_(typesetter), page_(page) {
    typesetter_.SetSize(layout.type);
    SetRunningHead();
  }

  void Paint(std::size_t number) {
    Ink(kInk);
    for (const Item& item : layout_.pages[number]) {
      PaintItem(item);
    }
    Ink(kInk);
    typesetter_.Flush(page_);
    Ink(kFaintInk);
    PaintMargins(number);
    cairo_show_page(page_);
  }

 private:
  void PaintItem(const Item& item) {
    switch (item.kind) {
      case ItemKind::kTitles:
        return PaintTitles(item.top);
      case ItemKind::kTableTitles:
        return PaintTableTitles(document_.tables[item.table], item.top,
                                layout_.tables[item.table].lefts.front());
      case ItemKind::kHeadings:
        return PaintHeadings(document_.tables[item.table], layout_.tables[item.table], item.top);
      case ItemKind::kRow:
        return PaintRow(item);
      case ItemKind::kNotes:
        return PaintNotes(item.top);
    }
  }

  double HeightOf(const QString& text, Face face, double size) {
    return TextHeight(typesetter_, text, face, size, layout_.Room());
  }

  void PaintTitles(double top) {
    double size = kTitleSize;
    Face face = Face::kBold;
    for (const QString& title : document_.titles) {
      typesetter_.Draw(page_, title.toStdString(), face, size, layout_.Left(), top, layout_.Room(),
                       Alignment::kCentre);
      top += HeightOf(title, face, size);
      size = kSubtitleSize;
      face = Face::kRegular;
    }
  }

  // They stand just above the headings; the gap to what comes before is theirs.
  void PaintTableTitles(const Table& table, double top, double left) {
    constexpr double kGapAbove = 8;
    top += kGapAbove;
    for (const QString& title : table.titles) {
      typesetter_.Draw(page_, title.toStdString(), Face::kBold, kSubtitleSize, left, top,
                       layout_.Room(), Alignment::kLeft);
      top += HeightOf(title, Face::kBold, kSubtitleSize);
    }
  }

  void PaintNotes(double top) {
    constexpr double kGapAbove = 8;
    top += kGapAbove;
    for (const QString& note : document_.notes) {
      typesetter_.Draw(page_, note.toStdString(), Face::kRegular, layout_.type, layout_.Left(), top,
                       layout_.Room(), Alignment::kLeft);
      top += HeightOf(note, Face::kRegular, layout_.type);
    }
  }

  void PaintHeadings(const Table& table, const TableShape& shape, double top) {
    const double height = shape.groups_height + shape.headings_height;
    const double left = shape.lefts.front();
    const double right = shape.lefts.back();
    Fill(left, top, right - left, height, kHeadingShade);
    PaintGroups(table, shape, top);
    top += shape.groups_height;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const Column& column = table.columns[i];
      HeadingText(column.heading, TextLeft(table, shape, i), RoomOf(table, shape, i), top,
                  shape.headings_height, column.alignment);
    }
    Line(left, right, top + shape.headings_height, kThick);
    Line(left, right, top - shape.groups_height, kThick);
  }

  void PaintGroups(const Table& table, const TableShape& shape, double top) {
    std::size_t first = 0;
    for (const ColumnGroup& group : table.groups) {
      const std::size_t end = std::min(first + group.columns, table.columns.size());
      HeadingText(group.heading, shape.lefts[first] + kCellGap,
                  shape.lefts[end] - shape.lefts[first] - 2 * kCellGap, top, shape.groups_height,
                  Alignment::kCentre);
      if (!group.heading.isEmpty()) {
        Line(shape.lefts[first] + kCellGap, shape.lefts[end] - kCellGap, top + shape.groups_height,
             kThin);
      }
      first = end;
    }
  }

  // Headings of one line stand at the foot of those that have more.
  void HeadingText(const QString& heading, double left, double room, double top, double height,
                   Alignment alignment) {
    const std::string text = heading.toStdString();
    const double width = room + 0.1;
    const int lines = typesetter_.Lines(text, Face::kBold, width / layout_.type);
    const double text_height = lines * typesetter_.LineHeight() * layout_.type;
    typesetter_.Draw(page_, text, Face::kBold, layout_.type, left,
                     top + height - text_height - kPadding, width, alignment);
  }

  void PaintRow(const Item& item) {
    const Table& table = document_.tables[item.table];
    const TableShape& shape = layout_.tables[item.table];
    const Row& row = table.rows[item.row];
    const int lines = shape.lines[item.row];
    PaintRules(row.kind, shape, item.top,
               layout_.row_height + (lines - 1) * typesetter_.LineHeight() * layout_.type);
    if (row.kind == RowKind::kGroup) {
      PaintCell(GroupText(row).toStdString(), Face::kBold, shape.lefts.front() + kCellGap,
                shape.lefts.back() - shape.lefts.front() - 2 * kCellGap, item.top, Alignment::kLeft,
                true);
      return;
    }
    for (std::size_t i = 0; i < std::min(row.cells.size(), table.columns.size()); ++i) {
      text_.clear();
      AppendCell(text_, row.cells[i], table.columns[i].mask);
      PaintCell(text_, FaceOf(row.kind), TextLeft(table, shape, i), RoomOf(table, shape, i),
                item.top, table.columns[i].alignment, lines > 1);
    }
  }

  void PaintRules(RowKind kind, const TableShape& shape, double top, double height) {
    const double left = shape.lefts.front();
    const double right = shape.lefts.back();
    if (kind == RowKind::kTotal || kind == RowKind::kNetTotal) {
      Fill(left, top, right - left, height, kTotalShade);
      Line(left, right, top, kThin);
      Line(left, right, top + height, kind == RowKind::kNetTotal ? kThick : kThin);
    } else if (kind == RowKind::kData) {
      Line(left, right, top + height, kThin / 2, kHairShade);
    }
  }

  void PaintCell(std::string_view text, Face face, double left, double room, double top,
                 Alignment alignment, bool may_break) {
    if (text.empty()) {
      return;
    }
    const double width = typesetter_.Width(text, face) * layout_.type;
    if (may_break && width > room + 0.1) {
      typesetter_.Draw(page_, text, face, layout_.type, left, top + kPadding / 2, room, alignment);
      return;
    }
    const double slack = alignment == Alignment::kLeft    ? 0
                         : alignment == Alignment::kRight ? room - width
                                                          : (room - width) / 2;
    typesetter_.Collect(page_, text, face, left + slack,
                        top + kPadding / 2 + typesetter_.Ascent() * layout_.type);
  }

  void PaintMargins(std::size_t number) {
    constexpr double kFootOffset = 34;
    const std::size_t pages = layout_.pages.size();
    typesetter_.Draw(page_, PageNumber(number + 1, pages), Face::kRegular, kRunningHeadSize,
                     layout_.Left(), layout_.page.height - kFootOffset, layout_.Room(),
                     Alignment::kCentre);
    if (number > 0) {
      typesetter_.Draw(page_, running_head_, Face::kRegular, kRunningHeadSize, layout_.Left(),
                       kTopMargin - 2, layout_.Room(), Alignment::kLeft);
    }
  }

  static std::string PageNumber(std::size_t number, std::size_t pages) {
    return QCoreApplication::translate("ReportOutput", "Page %1 of %2")
        .arg(number)
        .arg(pages)
        .toStdString();
  }

  // The place above later pages is one line high.
  void SetRunningHead() {
    QString head = document_.titles.join(QStringLiteral("  \u00b7  "));
    const QChar ellipsis(0x2026);
    running_head_ = head.toStdString();
    while (!head.isEmpty() &&
           typesetter_.Width(running_head_, Face::kRegular) * kRunningHeadSize > layout_.Room()) {
      head.chop(1);
      running_head_ = (head + ellipsis).toStdString();
    }
  }

  void Ink(double gray) { cairo_set_source_rgb(page_, gray, gray, gray); }

  void Fill(double left, double top, double width, double height, double gray) {
    Ink(gray);
    cairo_rectangle(page_, left, top, width, height);
    cairo_fill(page_);
    Ink(kInk);
  }

  void Line(double left, double right, double y, double thickness, double gray = kInk) {
    Ink(gray);
    cairo_set_line_width(page_, thickness);
    cairo_move_to(page_, left, y);
    cairo_line_to(page_, right, y);
    cairo_stroke(page_);
    Ink(kInk);
  }

  const ReportDocument& document_;
  const PageLayout& layout_;
  Typesetter& typesetter_;
  cairo_t* page_;
  std::string text_;
  std::string running_head_;
};

void CheckSink(const Sink& sink, cairo_surface_t* surface) {
  const cairo_status_t status = cairo_surface_status(surface);
  if (sink.failed) {
    throw std::runtime_error("the pages cannot be written: " +
                             sink.out.errorString().toStdString());
  }
  if (status != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error(std::string("the pages cannot be written: ") +
                             cairo_status_to_string(status));
  }
}

void PaintPages(const ReportDocument& document, const PageLayout& layout, Typesetter& typesetter,
                cairo_surface_t* surface, Progress& progress) {
  const Canvas canvas(cairo_create(surface));
  PagePainter painter(document, layout, typesetter, canvas.get());
  progress.Begin(QCoreApplication::translate("ReportOutput", "Writing the pages"),
                 static_cast<std::int64_t>(layout.pages.size()));
  for (std::size_t i = 0; i < layout.pages.size(); ++i) {
    painter.Paint(i);
    progress.Step(static_cast<std::int64_t>(i));
    progress.ThrowIfCancelled();
  }
}

}  // namespace

void WritePdf(const ReportDocument& document, QIODevice& out, Progress& progress) {
  Typesetter typesetter;
  progress.Begin(QCoreApplication::translate("ReportOutput", "Laying out the pages"),
                 RowCount(document));
  const PageLayout layout = LayOut(document, typesetter, progress);
  Sink sink{out};
  const Surface surface(cairo_pdf_surface_create_for_stream(Sink::Write, &sink, layout.page.width,
                                                            layout.page.height));
  if (!document.titles.isEmpty()) {
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE,
                                   document.titles.join(QStringLiteral(", ")).toUtf8().constData());
  }
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATOR, "Quorvane");
  PaintPages(document, layout, typesetter, surface.get(), progress);
  cairo_surface_finish(surface.get());
  CheckSink(sink, surface.get());
}

}  // namespace quorvane::reporting
