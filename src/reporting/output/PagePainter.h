#pragma once

#include "reporting/output/PageLayout.h"
#include "reporting/output/Typesetter.h"

#include <string>
#include <string_view>

namespace quorvane::reporting {

/// Where the pages of a report are among those of a booklet.
struct PagePlace {
  std::size_t before = 0;  ///< pages before them
  std::size_t all = 0;     ///< 0: there are no others
};

/// Draws the pages of a report that is laid out: titles, headings, rows with their rules, notes,
/// and what is in the margins. The caller chooses the order of the pages.
class PagePainter {
 public:
  PagePainter(const ReportDocument& document, const PageLayout& layout, Typesetter& typesetter,
              cairo_t* page, std::span<const charts::ChartData> charts = {}, PagePlace place = {});

  /// Page `number`, counted from 0.
  void Paint(std::size_t number);

 private:
  static constexpr double kInk = 0;

  void PaintItem(const Item& item);
  double HeightOf(const QString& text, Face face, double size);
  void PaintTitles(double top);
  void PaintTableTitles(const Table& table, double top, double left);
  void PaintChart(const Item& item);
  void PaintNotes(double top);
  void PaintHeadings(const Table& table, const TableShape& shape, double top);
  void PaintGroups(const Table& table, const TableShape& shape, double top);
  void HeadingText(const QString& heading, double left, double room, double top, double height,
                   Alignment alignment);
  void PaintRow(const Item& item);
  void PaintRules(RowKind kind, const TableShape& shape, double top, double height);
  void PaintCell(std::string_view text, Face face, double left, double room, double top,
                 Alignment alignment, bool may_break);
  void PaintMargins(std::size_t number);
  static std::string PageNumber(std::size_t number, std::size_t pages);
  void SetRunningHead();
  void Ink(double gray) { cairo_set_source_rgb(page_, gray, gray, gray); }
  void Fill(double left, double top, double width, double height, double gray);
  void Line(double left, double right, double y, double thickness, double gray = kInk);

  const ReportDocument& document_;
  const PageLayout& layout_;
  Typesetter& typesetter_;
  cairo_t* page_;
  std::span<const charts::ChartData> charts_;
  PagePlace place_;
  std::string text_;
  std::string running_head_;
};

}  // namespace quorvane::reporting
