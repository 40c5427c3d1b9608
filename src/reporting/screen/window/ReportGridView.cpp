#include "reporting/screen/window/ReportGridView.h"

#include "controls/Style.h"

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>

namespace quorvane::reporting {
namespace {

constexpr int kSample = 300;  // rows that are measured
constexpr int kCellPadding = 18;
constexpr int kWidest = 360;
constexpr int kNarrowestText = 160;
constexpr int kRowPadding = 7;
constexpr int kMostStretch = 36;
constexpr int kMostTextStretch = 260;

using Line = ReportModel::Line;

Line LineOf(const QModelIndex& index) {
  return static_cast<Line>(index.data(ReportModel::kLineRole).toInt());
}

/// Groups, headings and totals stand out by bold letters and a ground of their own.
class LineDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// The whole of a text that is cut short.
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    const bool cut = sizeHint(option, index).width() > view->visualRect(index).width();
    QToolTip::showText(event->globalPos(), cut ? index.data().toString() : QString(), view);
    return cut;
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const Line line = LineOf(index);
    if (line == Line::kData || line == Line::kGap || line == Line::kNote) {
      return;
    }
    option->font.setBold(true);
    const double share = line == Line::kGroup ? 0.03 : line == Line::kNetTotal ? 0.13 : 0.07;
    option->backgroundBrush = controls::Mix(option->palette.color(QPalette::Text),
                                            option->palette.color(QPalette::Base), share);
  }
};

/// What is likely the widest of a column: its largest and least number and its longest text.
class Extremes {
 public:
  void Add(const Cell& cell) {
    if (const auto* number = std::get_if<double>(&cell)) {
      largest_ = std::max(largest_, *number);
      least_ = std::min(least_, *number);
    } else if (const auto* text = std::get_if<QString>(&cell)) {
      longest_ = text->size() > longest_.size() ? *text : longest_;
    }
  }
  QStringList Texts(Mask mask) const {
    return {CellText(largest_, mask), CellText(least_, mask), longest_};
  }

 private:
  double largest_ = 0;
  double least_ = 0;
  QString longest_;
};

QStringList ExtremesOf(const Table& table, std::size_t column) {
  Extremes extremes;
  for (const Row& row : table.rows) {
    if (row.kind != RowKind::kGroup && column < row.cells.size()) {
      extremes.Add(row.cells[column]);
    }
  }
  return extremes.Texts(table.columns[column].mask);
}

}  // namespace

ReportHeadingsView::ReportHeadingsView(QTableView& list) : ListHeader(list) {
  setMinimumSectionSize(controls::kBoxHeight);
  SetFilterable(true);
}

void ReportHeadingsView::SetGroups(std::vector<ColumnGroup> groups) {
  groups_ = std::move(groups);
  SetArrangeable(true);
  setSectionsMovable(groups_.empty());
  updateGeometry();
  Q_EMIT geometriesChanged();
  viewport()->update();
}

int ReportHeadingsView::LineHeight() const {
  return fontMetrics().height() + controls::kSpacing + controls::kTightSpacing;
}

int ReportHeadingsView::HeadingHeight() const {
  return LineHeight() * (groups_.empty() ? 1 : 2);
}

void ReportHeadingsView::paintSection(QPainter* painter, const QRect& area, int section) const {
  ListHeader::paintSection(painter, groups_.empty() ? area : area.adjusted(0, LineHeight(), 0, 0),
                           section);
}

QRect ReportHeadingsView::GroupArea(int first, int count) const {
  QRect area;
  for (int column = first; column < std::min(first + count, this->count()); ++column) {
    if (!isSectionHidden(column)) {
      area |= QRect(sectionViewportPosition(column), 0, sectionSize(column), LineHeight());
    }
  }
  return area;
}

void ReportHeadingsView::paintEvent(QPaintEvent* event) {
  QHeaderView::paintEvent(event);
  QPainter painter(viewport());
  int first = 0;
  for (const ColumnGroup& group : groups_) {
    if (first >= count()) {
      return;
    }
    const QRect area = GroupArea(first, static_cast<int>(group.columns));
    painter.fillRect(area, controls::Mix(palette().color(QPalette::Text),
                                         palette().color(QPalette::Window), 0.06));
    painter.setPen(controls::EdgeColor(palette()));
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    painter.drawLine(area.topRight(), area.bottomRight());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(area, Qt::AlignCenter, group.heading);
    first += static_cast<int>(group.columns);
  }
}

ReportGridView::ReportGridView(const QString& name, const QString& purpose, QWidget* parent)
    : QTableView(parent), model_(new ReportModel(this)) {
  setObjectName(name);
  setAccessibleName(purpose);
  auto* headings = new ReportHeadingsView(*this);
  setHorizontalHeader(headings);
  setModel(model_);
  connect(headings, &controls::ListHeader::FilterChanged, this, [this] {
    model_->SetFilter(Headings().Filter());
    RowsChanged();
  });
  connect(headings, &controls::ListHeader::SortWanted, this, &ReportGridView::SortWanted);
  connect(headings, &controls::ListHeader::Arranged, this, &ReportGridView::FitColumns);
  connect(headings, &QHeaderView::sectionClicked, this, &ReportGridView::HeadingClicked);
  setItemDelegate(new LineDelegate(this));
  setSelectionBehavior(SelectRows);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setShowGrid(true);
  setHorizontalScrollMode(ScrollPerPixel);
  setMinimumHeight(4 * controls::kBoxHeight);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
}

ReportHeadingsView& ReportGridView::Headings() const {
  return *static_cast<ReportHeadingsView*>(horizontalHeader());
}

// Another report begins whole, with the columns as the user had them in a report like it.
void ReportGridView::SetDocument(ReportDocument document) {
  Headings().ClearFilter();
  clearSpans();
  model_->SetDocument(std::move(document));
  MeasureColumns();
  for (int column = 0; column < model_->columnCount(); ++column) {
    setColumnHidden(column, false);
  }
  Headings().SetGroups(model_->Groups());
  Headings().ColumnsChanged();
  Headings().RowsChanged(model_->rowCount());
  ShowOrder();
  RowsChanged();
}

/// Other rows are shown.
void ReportGridView::RowsChanged() {
  clearSpans();
  SpanGroups();
  FitColumns();
  updateGeometries();
  scrollToTop();
}

void ReportGridView::ShowOrder() {
  const auto& order = Headings().Wanted();
  Headings().setSortIndicatorShown(order.has_value());
  if (order) {
    Headings().setSortIndicator(order->column, order->direction);
  }
}

void ReportGridView::SortWanted(int column, Qt::SortOrder direction) {
  if (column >= 0) {
    Headings().Want({column, direction});
  }
  model_->sort(column, direction);
  ShowOrder();
  RowsChanged();
}

void ReportGridView::HeadingClicked(int column) {
  const bool again = Headings().Wanted() == controls::ListHeader::Order{column, Qt::AscendingOrder};
  SortWanted(column, again ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void ReportGridView::SpanGroups() {
  const int columns = model_->columnCount();
  for (int row = 0; row < model_->rowCount() && columns > 1; ++row) {
    const Line line = model_->LineAt(row);
    if (line == Line::kGroup || line == Line::kGap || line == Line::kNote) {
      setSpan(row, 0, 1, columns);
    }
  }
}

void ReportGridView::SetHint(const QString& hint) {
  hint_ = hint;
  viewport()->update();
}

QString ReportGridView::SelectedText() const {
  QModelIndexList rows = selectionModel()->selectedRows();
  std::ranges::sort(rows, {}, &QModelIndex::row);
  QStringList lines;
  for (const QModelIndex& row : rows) {
    lines.append(model_->RowText(row.row()));
  }
  return lines.join(QLatin1Char('\n'));
}

void ReportGridView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    QApplication::clipboard()->setText(SelectedText());
  } else if (Headings().TakesKey(*event)) {
    event->accept();
  } else {
    QTableView::keyPressEvent(event);
  }
}

void ReportGridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  Headings().ListResized();
  FitColumns();
}

void ReportGridView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (model_->rowCount() == 0 && !hint_.isEmpty()) {
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(controls::kMargin, 0, -controls::kMargin, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, hint_);
  }
}

void ReportGridView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange) {
    MeasureColumns();
    FitColumns();
  }
}

void ReportGridView::MeasureColumns() {
  widths_.clear();
  for (int column = 0; column < model_->columnCount(); ++column) {
    widths_.push_back(WidthOf(column));
  }
}

// Rows are measured here and there, and what is likely the widest of all.
int ReportGridView::WidthOf(int column) const {
  QFont bold = font();
  bold.setBold(true);
  const QFontMetrics metrics(bold);
  int width = metrics.horizontalAdvance(
      model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
  const int rows = model_->rowCount();
  const int step = std::max(1, rows / kSample);
  const auto measure = [&](int row) {
    const Line line = model_->LineAt(row);
    if (line != Line::kGroup && line != Line::kNote) {
      width =
          std::max(width, metrics.horizontalAdvance(model_->index(row, column).data().toString()));
    }
  };
  for (int row = 0; row < rows; row += step) {
    measure(row);
  }
  if (rows > 0) {
    measure(rows - 1);
  }
  const auto at = static_cast<std::size_t>(column);
  for (const Table& table : model_->Document().tables) {
    const QStringList texts = at < table.columns.size() ? ExtremesOf(table, at) : QStringList();
    for (const QString& text : texts) {
      width = std::max(width, metrics.horizontalAdvance(text));
    }
  }
  return std::min(width + kCellPadding, kWidest);
}

bool ReportGridView::IsText(int column) const {
  const std::vector<Column>& columns = model_->Document().tables.front().columns;
  const auto at = static_cast<std::size_t>(column);
  return at < columns.size() && columns[at].mask == Mask::kText;
}

// What is left over: a little to each column, more to the widest text, and not so much that a line
// is hard to follow. Where a little is missing the widest text gives it: all figures are in sight.
void ReportGridView::FitColumns() {
  const int columns = model_->columnCount();
  int taken = 0;
  int widest = -1;
  for (int column = 0; column < columns; ++column) {
    if (isColumnHidden(column)) {
      continue;
    }
    setColumnWidth(column, widths_[static_cast<std::size_t>(column)]);
    taken += columnWidth(column);
    if (IsText(column) && (widest < 0 || columnWidth(column) > columnWidth(widest))) {
      widest = column;
    }
  }
  const int missing = taken - viewport()->width();
  if (widest >= 0 && missing > 0 && columnWidth(widest) - missing >= kNarrowestText) {
    setColumnWidth(widest, columnWidth(widest) - missing);
  }
  const int left_over = std::max(0, -missing);
  const int more = columns == 0 ? 0 : std::min(left_over / columns, kMostStretch);
  for (int column = 0; column < columns; ++column) {
    if (!isColumnHidden(column)) {
      setColumnWidth(column, columnWidth(column) + more);
    }
  }
  if (widest >= 0) {
    const int rest = std::min(left_over - more * columns, kMostTextStretch);
    setColumnWidth(widest, columnWidth(widest) + rest);
  }
}

}  // namespace quorvane::reporting
