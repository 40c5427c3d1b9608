#pragma once

#include "core/Progress.h"
#include "reporting/charts/ChartData.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/output/Typesetter.h"

#include <span>
#include <vector>

namespace quorvane::reporting {

/// Lengths of a page in points (a 72nd of an inch).
struct PageSize {
  double width = 0;
  double height = 0;
};

inline constexpr double kSideMargin = 34;
inline constexpr double kTopMargin = 34;
inline constexpr double kBottomMargin = 46;  ///< the page number is in it
inline constexpr double kCellGap = 3;        ///< on either side of a cell's text
inline constexpr double kInset = 7;          ///< before a column that stands apart
inline constexpr double kTitleSize = 14;
inline constexpr double kSubtitleSize = 10;
inline constexpr double kRunningHeadSize = 8;
inline constexpr double kRunningHeadHeight = 16;

/// Where the columns of a table are, and how high its parts are.
struct TableShape {
  std::vector<double> lefts;  ///< one more than there are columns: the last is the right edge
  double groups_height = 0;   ///< 0 without group headings
  double headings_height = 0;
  std::vector<std::uint8_t> lines;  ///< lines of text of each row
};

enum class ItemKind : std::uint8_t { kTitles, kChart, kTableTitles, kHeadings, kRow, kNotes };

/// A part of a page; a page has its parts from top to bottom.
struct Item {
  ItemKind kind = ItemKind::kRow;
  std::uint32_t table = 0;  ///< or chart
  std::uint32_t row = 0;
  double top = 0;
};

using Page = std::vector<Item>;

/// The place of everything: decided before the first page is drawn, so that each page can tell how
/// many there are.
struct PageLayout {
  PageSize page;
  double type = 9;  ///< size of the type in the tables, in points
  double row_height = 0;
  std::vector<TableShape> tables;
  std::vector<Page> pages;

  double Left() const { return kSideMargin; }
  double Room() const { return page.width - 2 * kSideMargin; }
};

/// True for a column of texts after one of numbers, whose contents would otherwise touch.
bool StandsApart(const Table& table, std::size_t column);

/// Left edge and width of the text in a column, in points.
double TextLeft(const Table& table, const TableShape& shape, std::size_t column);
double RoomOf(const Table& table, const TableShape& shape, std::size_t column);

/// Height in points of a text that is broken into lines of `room` points.
double TextHeight(Typesetter& typesetter, const QString& text, Face face, double size, double room);

/// Chooses page and type size by the contents and gives every column its place: the first half of
/// LayOut, which fills all of the layout except its pages.
void FitColumns(const ReportDocument& document, Typesetter& typesetter, Progress& progress,
                PageLayout& layout);

/// Lays the report out, with charts between its titles and its tables. Throws Cancellation.
PageLayout LayOut(const ReportDocument& document, Typesetter& typesetter, Progress& progress,
                  std::span<const charts::ChartData> charts = {});

/// The face of a row's cells.
Face FaceOf(RowKind kind);

}  // namespace quorvane::reporting
