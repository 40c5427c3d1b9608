#include "reporting/output/ColumnWidths.h"
#include "reporting/output/PageLayout.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace quorvane::reporting {

namespace {

constexpr PageSize kPortrait{595.28, 841.89};
constexpr PageSize kLandscape{841.89, 595.28};
constexpr double kRowPadding = 1.5;

// Widths for type of size 1.
constexpr double kNarrowestText = 9;   // where room is short
constexpr double kWidestStretch = 14;  // what a column gets at most of the room that is left over

struct Setting {
  PageSize page;
  double type = 9;
};

std::vector<Setting> Settings(bool may_lie) {
  std::vector<Setting> settings;
  for (const double type : {9.0, 8.5, 8.0}) {
    settings.push_back({kPortrait, type});
  }
  const PageSize page = may_lie ? kLandscape : kPortrait;
  for (const double type : {9.0, 8.5, 8.0, 7.5, 7.0, 6.5, 6.0}) {
    settings.push_back({page, type});
  }
  return settings;
}

/// The room beside the texts of a table.
double Gaps(const Widths& measured) {
  return 2 * kCellGap * static_cast<double>(measured.widths.size()) + measured.insets * kInset;
}

double Width(const Widths& measured, double type) {
  return std::accumulate(measured.widths.begin(), measured.widths.end(), 0.0) * type +
         Gaps(measured);
}

/// Takes from the columns of text what the table is too wide by; true when that is enough.
bool Bend(Widths& measured, double type, double room) {
  for (std::size_t i = 0; i < measured.widths.size() && Width(measured, type) > room; ++i) {
    const double excess = (Width(measured, type) - room) / type;
    if (measured.bends[i] && measured.widths[i] > kNarrowestText) {
      measured.widths[i] = std::max(kNarrowestText, measured.widths[i] - excess);
    }
  }
  return Width(measured, type) <= room;
}

double Room(PageSize page) {
  return page.width - 2 * kSideMargin;
}

/// The first setting in which every table fits; in the last one texts are broken further, and type
/// shrinks when not even that helps.
Setting Choose(std::vector<Widths>& all_widths, bool may_lie) {
  const std::vector<Setting> settings = Settings(may_lie);
  for (const Setting& setting : settings) {
    if (std::ranges::all_of(all_widths, [&](const Widths& measured) {
          return Width(measured, setting.type) <= Room(setting.page);
        })) {
      return setting;
    }
  }
  Setting last = settings.back();
  last.type = 7;
  for (Widths& measured : all_widths) {
    if (!Bend(measured, last.type, Room(last.page))) {
      last.type *=
          (Room(last.page) - Gaps(measured)) / (Width(measured, last.type) - Gaps(measured));
      last.type = std::max(last.type, 1.0);
    }
  }
  return last;
}

/// Shares of the room that is left over: the given weights, else the texts, else everybody.
std::vector<double> Shares(const Table& table, const Widths& measured) {
  std::vector<double> shares;
  for (const Column& column : table.columns) {
    shares.push_back(column.weight);
  }
  const auto nobody = [&] { return std::ranges::all_of(shares, [](double x) { return x == 0; }); };
  if (nobody()) {
    std::ranges::transform(measured.bends, shares.begin(),
                           [](bool bends) { return bends ? 1 : 0; });
  }
  if (nobody()) {
    std::ranges::fill(shares, 1);
  }
  return shares;
}

double Sum(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0);
}

/// Lets the columns stand a little apart before the texts take the rest.
void Loosen(const PageLayout& layout, std::vector<double>& widths) {
  constexpr double kMost = 9;
  const double left_over = std::max(0.0, layout.Room() - Sum(widths));
  const double more = std::min(kMost, left_over / static_cast<double>(widths.size() + 1));
  for (double& width : widths) {
    width += more;
  }
}

/// Gives columns room for a heading in one line as long as there is some.
void UnbreakHeadings(const Table& table, const Widths& measured, const PageLayout& layout,
                     std::vector<double>& widths) {
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const double inset = StandsApart(table, i) ? kInset : 0;
    const double missing = measured.headings[i] * layout.type + 2 * kCellGap + inset - widths[i];
    const double left_over = layout.Room() - Sum(widths);
    if (missing > 0 && missing <= left_over) {
      widths[i] += missing;
    }
  }
}

void Place(const Table& table, const Widths& measured, PageLayout& layout, TableShape& shape) {
  std::vector<double> widths;
  for (std::size_t i = 0; i < measured.widths.size(); ++i) {
    const double inset = StandsApart(table, i) ? kInset : 0;
    widths.push_back(measured.widths[i] * layout.type + 2 * kCellGap + inset);
  }
  UnbreakHeadings(table, measured, layout, widths);
  Loosen(layout, widths);
  const std::vector<double> shares = Shares(table, measured);
  const double all = Sum(shares);
  const double left_over = std::max(0.0, layout.Room() - Sum(widths));
  for (std::size_t i = 0; i < widths.size() && all > 0; ++i) {
    widths[i] += std::min(left_over * shares[i] / all, kWidestStretch * layout.type);
  }
  const double width = Sum(widths);
  double at = layout.Left() + std::max(0.0, (layout.Room() - width) / 2);
  shape.lefts.push_back(at);
  for (const double column : widths) {
    shape.lefts.push_back(at += column);
  }
}

double HeadingsHeight(const Table& table, const PageLayout& layout, const TableShape& shape,
                      Typesetter& typesetter) {
  int lines = 1;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const double width = RoomOf(table, shape, i) / layout.type;
    lines = std::max(
        lines, typesetter.Lines(table.columns[i].heading.toStdString(), Face::kBold, width + 0.01));
  }
  return lines * typesetter.LineHeight() * layout.type + 2 * kRowPadding;
}

/// Counts the lines of the rows in which a text is broken.
void CountLines(const Table& table, const PageLayout& layout, TableShape& shape,
                Typesetter& typesetter) {
  constexpr int kMostLines = std::numeric_limits<std::uint8_t>::max();
  std::string text;
  shape.lines.reserve(table.rows.size());
  for (const Row& row : table.rows) {
    const bool group = row.kind == RowKind::kGroup;
    int lines = 1;
    for (std::size_t i = 0; i < std::min(row.cells.size(), table.columns.size()); ++i) {
      if (!std::holds_alternative<QString>(row.cells[i])) {
        continue;
      }
      text.clear();
      AppendCell(text, row.cells[i], table.columns[i].mask);
      const double room =
          group ? shape.lefts.back() - shape.lefts.front() - 2 * kCellGap : RoomOf(table, shape, i);
      const double width = room / layout.type + 0.01;
      if (typesetter.Width(text, FaceOf(row.kind)) > width) {
        lines = std::max(lines, typesetter.Lines(text, FaceOf(row.kind), width));
      }
      if (group) {
        break;
      }
    }
    shape.lines.push_back(static_cast<std::uint8_t>(std::min(lines, kMostLines)));
  }
}

}  // namespace

void FitColumns(const ReportDocument& document, Typesetter& typesetter, Progress& progress,
                PageLayout& layout) {
  ColumnMeasurer measurer(typesetter, progress);
  std::vector<Widths> all_widths;
  for (const Table& table : document.tables) {
    all_widths.push_back(measurer.Measure(table));
  }
  const Setting setting = Choose(all_widths, document.may_lie);
  layout.page = setting.page;
  layout.type = setting.type;
  layout.row_height = typesetter.LineHeight() * setting.type + kRowPadding;
  for (std::size_t i = 0; i < all_widths.size(); ++i) {
    const Table& table = document.tables[i];
    TableShape& shape = layout.tables.emplace_back();
    Place(table, all_widths[i], layout, shape);
    shape.headings_height = HeadingsHeight(table, layout, shape, typesetter);
    shape.groups_height = table.groups.empty() ? 0 : layout.row_height + kRowPadding;
    CountLines(table, layout, shape, typesetter);
  }
}

}  // namespace quorvane::reporting
