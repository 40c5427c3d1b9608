#include "reporting/output/PagePainter.h"

#include "core/text/Tr.h"
#include "reporting/output/ChartPicture.h"

#include <algorithm>

namespace quorvane::reporting {
namespace {

constexpr double kThin = 0.4;
constexpr double kThick = 0.9;
constexpr double kHeadingShade = 0.93;
constexpr double kTotalShade = 0.965;
constexpr double kFaintInk = 0.35;
constexpr double kHairShade = 0.82;
constexpr double kPadding = 1.5;

}  // namespace

PagePainter::PagePainter(const ReportDocument& document, const PageLayout& layout,
                         Typesetter& typesetter, cairo_t* page,
                         std::span<const charts::ChartData> charts, PagePlace place)
    : document_(document),
      layout_(layout),
      typesetter_(typesetter),
      page_(page),
      charts_(charts),
      place_(place) {
  typesetter_.SetSize(layout.type);
  SetRunningHead();
}

void PagePainter::Paint(std::size_t number) {
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

void PagePainter::PaintItem(const Item& item) {
  switch (item.kind) {
    case ItemKind::kTitles:
      return PaintTitles(item.top);
    case ItemKind::kChart:
      return PaintChart(item);
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

double PagePainter::HeightOf(const QString& text, Face face, double size) {
  return TextHeight(typesetter_, text, face, size, layout_.Room());
}

void PagePainter::PaintTitles(double top) {
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
void PagePainter::PaintTableTitles(const Table& table, double top, double left) {
  constexpr double kGapAbove = 8;
  top += kGapAbove;
  for (const QString& title : table.titles) {
    typesetter_.Draw(page_, title.toStdString(), Face::kBold, kSubtitleSize, left, top,
                     layout_.Room(), Alignment::kLeft);
    top += HeightOf(title, Face::kBold, kSubtitleSize);
  }
}

void PagePainter::PaintChart(const Item& item) {
  constexpr double kGapAbove = 10;
  const charts::ChartData& chart = charts_[item.table];
  DrawChart(page_, typesetter_, chart,
            {layout_.Left(), item.top + kGapAbove, layout_.Room(), ChartHeight(chart)});
  Ink(kInk);
}

void PagePainter::PaintNotes(double top) {
  constexpr double kGapAbove = 8;
  top += kGapAbove;
  for (const QString& note : document_.notes) {
    typesetter_.Draw(page_, note.toStdString(), Face::kRegular, layout_.type, layout_.Left(), top,
                     layout_.Room(), Alignment::kLeft);
    top += HeightOf(note, Face::kRegular, layout_.type);
  }
}

void PagePainter::PaintHeadings(const Table& table, const TableShape& shape, double top) {
  const double height = shape.groups_height + shape.headings_height;
  const double left = shape.lefts.front();
  const double right = shape.lefts.back();
  Fill(left, top, right - left, height, kHeadingShade);
  PaintGroups(table, shape, top);
  top += shape.groups_height;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const Column& column = table.columns[i];
    HeadingText(column.heading, TextLeft(table, shape, i), RoomOf(table, shape, i), top,
                shape.headings_height, AlignmentOf(column));
  }
  Line(left, right, top + shape.headings_height, kThick);
  Line(left, right, top - shape.groups_height, kThick);
}

void PagePainter::PaintGroups(const Table& table, const TableShape& shape, double top) {
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
void PagePainter::HeadingText(const QString& heading, double left, double room, double top,
                              double height, Alignment alignment) {
  const std::string text = heading.toStdString();
  const double width = room + 0.1;
  const int lines = typesetter_.Lines(text, Face::kBold, width / layout_.type);
  const double text_height = lines * typesetter_.LineHeight() * layout_.type;
  typesetter_.Draw(page_, text, Face::kBold, layout_.type, left,
                   top + height - text_height - kPadding, width, alignment);
}

void PagePainter::PaintRow(const Item& item) {
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
    PaintCell(text_, FaceOf(row.kind), TextLeft(table, shape, i), RoomOf(table, shape, i), item.top,
              AlignmentOf(table.columns[i]), lines > 1);
  }
}

void PagePainter::PaintRules(RowKind kind, const TableShape& shape, double top, double height) {
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

void PagePainter::PaintCell(std::string_view text, Face face, double left, double room, double top,
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

void PagePainter::PaintMargins(std::size_t number) {
  constexpr double kFootOffset = 34;
  const std::size_t pages = place_.all > 0 ? place_.all : layout_.pages.size();
  typesetter_.Draw(page_, PageNumber(place_.before + number + 1, pages), Face::kRegular,
                   kRunningHeadSize, layout_.Left(), layout_.page.height - kFootOffset,
                   layout_.Room(), Alignment::kCentre);
  if (number > 0) {
    typesetter_.Draw(page_, running_head_, Face::kRegular, kRunningHeadSize, layout_.Left(),
                     kTopMargin - 2, layout_.Room(), Alignment::kLeft);
  }
}

std::string PagePainter::PageNumber(std::size_t number, std::size_t pages) {
  return Tr("ReportOutput", "Page %1 of %2").arg(number).arg(pages).toStdString();
}

// The place above later pages is one line high.
void PagePainter::SetRunningHead() {
  QString head = document_.titles.join(QStringLiteral("  \u00b7  "));
  const QChar ellipsis(0x2026);
  running_head_ = head.toStdString();
  while (!head.isEmpty() &&
         typesetter_.Width(running_head_, Face::kRegular) * kRunningHeadSize > layout_.Room()) {
    head.chop(1);
    running_head_ = (head + ellipsis).toStdString();
  }
}

void PagePainter::Fill(double left, double top, double width, double height, double gray) {
  Ink(gray);
  cairo_rectangle(page_, left, top, width, height);
  cairo_fill(page_);
  Ink(kInk);
}

void PagePainter::Line(double left, double right, double y, double thickness, double gray) {
  Ink(gray);
  cairo_set_line_width(page_, thickness);
  cairo_move_to(page_, left, y);
  cairo_line_to(page_, right, y);
  cairo_stroke(page_);
  Ink(kInk);
}

}  // namespace quorvane::reporting
