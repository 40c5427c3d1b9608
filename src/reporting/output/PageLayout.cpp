#include "reporting/output/PageLayout.h"

#include "reporting/output/ChartPicture.h"

namespace quorvane::reporting {
namespace {

constexpr double kTableGap = 10;
constexpr std::size_t kLongestBlock = 8;  // rows that are kept together at most

/// Fills page after page from top to bottom.
class Pager {
 public:
  Pager(const ReportDocument& document, std::span<const charts::ChartData> charts,
        Typesetter& typesetter, PageLayout& layout)
      : document_(document),
        charts_(charts),
        typesetter_(typesetter),
        layout_(layout),
        line_(typesetter.LineHeight()) {}

  void Run() {
    NewPage();
    Add(ItemKind::kTitles, 0, 0, TitlesHeight());
    for (std::uint32_t i = 0; i < charts_.size(); ++i) {
      const double height = kTableGap + ChartHeight(charts_[i]);
      BreakUnless(height);
      Add(ItemKind::kChart, i, 0, height);
    }
    for (std::uint32_t i = 0; i < document_.tables.size(); ++i) {
      AddTable(i);
    }
    if (!document_.notes.isEmpty()) {
      const double height = kTableGap + HeightOf(document_.notes, Face::kRegular, layout_.type);
      BreakUnless(height);
      Add(ItemKind::kNotes, 0, 0, height);
    }
  }

 private:
  double TitlesHeight() const {
    return HeightOf(document_.titles.mid(0, 1), Face::kBold, kTitleSize) +
           HeightOf(document_.titles.mid(1), Face::kRegular, kSubtitleSize);
  }

  double HeightOf(const QStringList& texts, Face face, double size) const {
    double height = 0;
    for (const QString& text : texts) {
      height += TextHeight(typesetter_, text, face, size, layout_.Room());
    }
    return height;
  }

  double Bottom() const { return layout_.page.height - kBottomMargin; }
  bool Fits(double height) const { return at_ + height <= Bottom(); }

  void NewPage() {
    layout_.pages.emplace_back();
    at_ = kTopMargin + (layout_.pages.size() > 1 ? kRunningHeadHeight : 0);
    top_ = at_;
  }

  void BreakUnless(double height) {
    if (!Fits(height) && at_ > top_) {
      NewPage();
    }
  }

  void Add(ItemKind kind, std::uint32_t table, std::uint32_t row, double height) {
    layout_.pages.back().push_back({kind, table, row, at_});
    at_ += height;
  }

  double RowHeight(std::uint32_t table, std::size_t row) const {
    return layout_.row_height + (layout_.tables[table].lines[row] - 1) * line_ * layout_.type;
  }

  void AddTable(std::uint32_t index) {
    const Table& table = document_.tables[index];
    const TableShape& shape = layout_.tables[index];
    const double titles = kTableGap + HeightOf(table.titles, Face::kBold, kSubtitleSize);
    const double headings = shape.groups_height + shape.headings_height;
    BreakUnless(titles + headings + (table.rows.empty() ? 0 : BlockHeight(index, 0)));
    Add(ItemKind::kTableTitles, index, 0, titles);
    Add(ItemKind::kHeadings, index, 0, headings);
    first_of_page_ = true;
    for (std::uint32_t row = 0; row < table.rows.size(); ++row) {
      AddRow(index, row, headings);
    }
  }

  void AddRow(std::uint32_t table, std::uint32_t row, double headings) {
    if (!first_of_page_ && !Fits(BlockHeight(table, row))) {
      NewPage();
      Add(ItemKind::kHeadings, table, 0, headings);
      first_of_page_ = true;
    }
    if (first_of_page_ && document_.tables[table].rows[row].kind == RowKind::kGap) {
      return;
    }
    Add(ItemKind::kRow, table, row, RowHeight(table, row));
    first_of_page_ = false;
  }

  /// The height of a row and of the rows that it must not be parted from: what a heading stands
  /// over, and the total under a last line.
  double BlockHeight(std::uint32_t table, std::size_t row) const {
    const std::vector<Row>& rows = document_.tables[table].rows;
    double height = RowHeight(table, row);
    for (std::size_t next = row + 1; next < rows.size() && next < row + kLongestBlock; ++next) {
      if (!Belongs(rows[next - 1].kind, rows[next].kind)) {
        break;
      }
      height += RowHeight(table, next);
    }
    return height;
  }

  static bool Belongs(RowKind above, RowKind below) {
    const bool total = below == RowKind::kTotal || below == RowKind::kNetTotal;
    return above == RowKind::kGroup || (total && above != RowKind::kGap);
  }

  const ReportDocument& document_;
  std::span<const charts::ChartData> charts_;
  Typesetter& typesetter_;
  PageLayout& layout_;
  double line_;
  double at_ = 0;
  double top_ = 0;
  bool first_of_page_ = true;
};

}  // namespace

Face FaceOf(RowKind kind) {
  return kind == RowKind::kData ? Face::kRegular : Face::kBold;
}

bool StandsApart(const Table& table, std::size_t column) {
  return column > 0 && AlignmentOf(table.columns[column]) == Alignment::kLeft &&
         AlignmentOf(table.columns[column - 1]) == Alignment::kRight;
}

double TextLeft(const Table& table, const TableShape& shape, std::size_t column) {
  return shape.lefts[column] + kCellGap + (StandsApart(table, column) ? kInset : 0);
}

double RoomOf(const Table& table, const TableShape& shape, std::size_t column) {
  return shape.lefts[column + 1] - kCellGap - TextLeft(table, shape, column);
}

double TextHeight(Typesetter& typesetter, const QString& text, Face face, double size,
                  double room) {
  return typesetter.Lines(text.toStdString(), face, room / size) * typesetter.LineHeight() * size;
}

PageLayout LayOut(const ReportDocument& document, Typesetter& typesetter, Progress& progress,
                  std::span<const charts::ChartData> charts) {
  PageLayout layout;
  FitColumns(document, typesetter, progress, layout);
  Pager(document, charts, typesetter, layout).Run();
  return layout;
}

}  // namespace quorvane::reporting
