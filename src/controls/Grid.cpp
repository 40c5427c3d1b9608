#include "controls/Grid.h"

#include "controls/ColumnFit.h"
#include "controls/ComboBox.h"
#include "controls/GridDelegate.h"
#include "controls/Style.h"
#include "controls/TextBox.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace quorvane::controls {
namespace {

constexpr int kWidestByHand = 2000;
constexpr int kRowPadding = 8;

}  // namespace

Grid::Grid(const QString& name, const QString& purpose, QWidget* parent)
    : QTableView(parent), model_(new GridModel(this)) {
  setObjectName(name);
  setAccessibleName(purpose);
  header_ = new ListHeader(*this);
  setHorizontalHeader(header_);
  setModel(model_);
  auto* delegate = new GridDelegate(this);
  setItemDelegate(delegate);
  connect(delegate, &GridDelegate::Refused, this, &Grid::EditRefused);
  connect(header_, &QHeaderView::sectionClicked, this, &Grid::HeadingClicked);
  connect(header_, &ListHeader::SortWanted, this, &Grid::SortWanted);
  connect(header_, &ListHeader::FilterChanged, this, &Grid::FilterChanged);
  connect(header_, &ListHeader::Arranged, this, [this] {
    if (!fitted_by_hand_) {
      FitColumns();
    }
  });
  connect(this, &QAbstractItemView::clicked, this, &Grid::RowClicked);
  connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& cell) {
    if ((cell.flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)) == 0) {
      Q_EMIT RowActivated(cell.row());
    }
  });
  SetLook();
}

void Grid::SetLook() {
  setSelectionBehavior(SelectRows);
  setEditTriggers(EditKeyPressed | AnyKeyPressed | DoubleClicked);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setMinimumHeight(3 * kBoxHeight);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
  horizontalHeader()->setMinimumSectionSize(kNarrowestColumn);
  // Dragging a heading's edge is the user's wish for a width; from then on widths are left alone.
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, &Grid::SectionResized);
}

void Grid::SectionResized(int column) {
  const bool stretched =
      horizontalHeader()->sectionResizeMode(column) != QHeaderView::Interactive ||
      (horizontalHeader()->stretchLastSection() && column + 1 == model_->columnCount());
  fitted_by_hand_ = fitted_by_hand_ || (!fitting_ && !stretched);
}

QList<int> Grid::WidthsByHand() const {
  QList<int> widths;
  for (int column = 0; fitted_by_hand_ && column < model_->columnCount(); ++column) {
    widths << (isColumnHidden(column) ? kNarrowestColumn : columnWidth(column));
  }
  return widths;
}

void Grid::SetWidths(const QList<int>& widths) {
  if (widths.size() != model_->columnCount()) {
    return;
  }
  for (int column = 0; column < model_->columnCount(); ++column) {
    if (!isColumnHidden(column)) {
      setColumnWidth(column, std::clamp(widths[column], kNarrowestColumn, kWidestByHand));
    }
  }
  fitted_by_hand_ = true;
}

void Grid::SetColumns(std::vector<Column> columns) {
  model_->SetColumns(std::move(columns));
  for (int column = 0; column < model_->columnCount(); ++column) {
    setColumnHidden(column, model_->Columns()[static_cast<std::size_t>(column)].hidden);
  }
  fitted_by_hand_ = false;  // hiding and showing a column is no wish for a width
  horizontalHeader()->setSortIndicatorShown(false);
  sorted_column_ = -1;
  header_->SetArrangeable(sortable_ && std::ranges::none_of(model_->Columns(), &Column::editable));
  header_->ColumnsChanged();
  header_->RowsChanged(0);
  FitColumns();
}

void Grid::SetRows(std::vector<Row> rows) {
  const int id = CurrentId();
  {
    const QScopedValueRollback<bool> filling(filling_, true);
    model_->SetRows(std::move(rows));
    header_->RowsChanged(model_->CountOfAll());
    SortAgain();
    FitColumns();
    SelectId(id);
  }
  Q_EMIT CurrentRowChanged(CurrentRow());
}

void Grid::SetSortable(bool on) {
  sortable_ = on;
  header_->SetSortable(on);
  header_->SetArrangeable(on && header_->IsArrangeable());
}

void Grid::SortAgain() {
  const std::optional<Order> order = header_->Wanted();
  sorted_column_ = -1;
  horizontalHeader()->setSortIndicatorShown(false);
  if (sortable_) {
    SortBy(order);
  }
}

/// Column -1 is the order in which the rows were set.
void Grid::SortWanted(int column, Qt::SortOrder direction) {
  if (!sortable_) {
    return;
  }
  if (column < 0) {
    sorted_column_ = -1;
    model_->ResetOrder();
  } else {
    header_->Want({column, direction});
    SortBy(Order{column, direction});
  }
}

// The cursor stays on its record; where that is not shown, the first one gets it.
void Grid::FilterChanged() {
  const int id = CurrentId();
  {
    const QScopedValueRollback<bool> filling(filling_, true);
    model_->SetFilter(header_->Filter());
    SortAgain();
    SelectId(id);
    if (CurrentRow() < 0) {
      SelectRow(0);
    }
  }
  Q_EMIT CurrentRowChanged(CurrentRow());
}

int Grid::CurrentRow() const {
  return currentIndex().isValid() ? currentIndex().row() : -1;
}

int Grid::CurrentId() const {
  return CurrentRow() < 0 ? 0 : model_->IdOf(CurrentRow());
}

void Grid::SelectRow(int row) {
  if (row < 0 || row >= model_->RowCount()) {
    setCurrentIndex({});
    clearSelection();
    return;
  }
  MakeCurrent(model_->index(row, FirstShownColumn()));
}

// The view's own way looks at the keyboard: with Ctrl held down, as for Ctrl+S, it would leave the
// old selection standing.
void Grid::MakeCurrent(const QModelIndex& cell) {
  selectionModel()->setCurrentIndex(
      cell, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

int Grid::FirstShownColumn() const {
  int place = 0;
  while (place + 1 < model_->columnCount() && isColumnHidden(header_->logicalIndex(place))) {
    ++place;
  }
  return std::max(0, header_->logicalIndex(place));
}

void Grid::SelectId(int id) {
  SelectRow(id == 0 ? -1 : model_->RowOf(id));
}

void Grid::Reveal(int id) {
  if (id != 0 && model_->IsAside(id)) {
    header_->ClearFilter();
  }
  SelectId(id);
}

int Grid::AddRow(Row row) {
  const int at = model_->AddRow(std::move(row));
  // The cell before the row's first one: the search begins behind it.
  const QModelIndex before = model_->index(at - 1, model_->columnCount() - 1);
  const QModelIndex first = NextEditable(before, true);
  if (first.isValid()) {
    MakeCurrent(first);
  } else {
    SelectRow(at);
  }
  return at;
}

void Grid::RemoveCurrentRow() {
  if (CurrentRow() >= 0) {
    model_->RemoveRow(CurrentRow());
  }
}

// Asked for by key or click, a list opens; when it was typed into, the typing completes.
bool Grid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const bool opened = QTableView::edit(index, trigger, event);
  if (opened && (trigger == EditKeyPressed || trigger == DoubleClicked)) {
    if (auto* list = qobject_cast<ComboBox*>(indexWidget(index))) {
      list->showPopup();
    }
  }
  return opened;
}

void Grid::HeadingClicked(int column) {
  if (model_->TickColumn() == column) {
    model_->TickAll(!model_->AllShownTicked());
  } else {
    const bool again = sorted_column_ == column && !descending_;
    SortWanted(column, again ? Qt::DescendingOrder : Qt::AscendingOrder);
  }
}

std::optional<Grid::Order> Grid::SortedBy() const {
  return sorted_column_ < 0
             ? std::nullopt
             : std::optional(
                   Order{sorted_column_, descending_ ? Qt::DescendingOrder : Qt::AscendingOrder});
}

void Grid::SortBy(const std::optional<Order>& order) {
  if (!order || order->column >= model_->columnCount()) {
    return;
  }
  sorted_column_ = order->column;
  descending_ = order->direction == Qt::DescendingOrder;
  model_->sort(order->column, order->direction);
  horizontalHeader()->setSortIndicator(order->column, order->direction);
  horizontalHeader()->setSortIndicatorShown(true);
}

// The cell of the tick itself is its delegate's; with Ctrl or Shift rows are chosen to be copied.
void Grid::RowClicked(const QModelIndex& cell) {
  const bool chooses =
      (QGuiApplication::keyboardModifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
  if (model_->TickColumn() && !chooses &&
      (cell.flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)) == 0) {
    ToggleTick(cell.row());
  }
}

void Grid::ToggleTick(int row) {
  if (row >= 0 && model_->RowAt(row).kind == RowKind::kData) {
    model_->SetTicked(row, !model_->IsTicked(row));
  }
}

void Grid::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    QApplication::clipboard()->setText(SelectedText());
  } else if (header_->TakesKey(*event)) {
    event->accept();
  } else if (IsEnter(*event)) {
    event->setAccepted(EnterPressed());
  } else if (event->key() == Qt::Key_Space && model_->TickColumn()) {
    ToggleTick(CurrentRow());
  } else {
    QTableView::keyPressEvent(event);
  }
}

bool Grid::EnterPressed() {
  const auto& columns = model_->Columns();
  if (std::ranges::any_of(columns, &Column::editable) && editTriggers() != NoEditTriggers) {
    MoveOn(true);
    return true;
  }
  if (CurrentRow() >= 0) {
    Q_EMIT RowActivated(CurrentRow());
    return true;
  }
  return false;
}

void Grid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
  if (hint == QAbstractItemDelegate::EditNextItem) {
    MoveOn(true);
  } else if (hint == QAbstractItemDelegate::EditPreviousItem) {
    MoveOn(false);
  }
}

void Grid::MoveOn(bool forward) {
  const QModelIndex next = NextEditable(currentIndex(), forward);
  if (next.isValid()) {
    MakeCurrent(next);
    edit(next);
  } else if (forward) {
    Q_EMIT LastCellLeft();
  }
}

QModelIndex Grid::NextEditable(const QModelIndex& from, bool forward) const {
  const int columns = model_->columnCount();
  const int cells = model_->RowCount() * columns;
  const int step = forward ? 1 : -1;
  const int start = from.isValid() ? from.row() * columns + from.column() : -1;
  for (int at = start + step; at >= 0 && at < cells; at += step) {
    const QModelIndex cell = model_->index(at / columns, at % columns);
    if ((cell.flags() & Qt::ItemIsEditable) != 0 && !isColumnHidden(cell.column())) {
      return cell;
    }
  }
  return {};
}

void Grid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (!filling_ && current.row() != previous.row()) {
    Q_EMIT CurrentRowChanged(current.row());
  }
}

void Grid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  header_->ListResized();
  if (!fitted_by_hand_) {
    FitColumns();
  }
}

// The frame tells where the focus is; the view itself repaints only what is inside of it.
void Grid::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  const bool by_key = event->reason() == Qt::TabFocusReason ||
                      event->reason() == Qt::BacktabFocusReason ||
                      event->reason() == Qt::ShortcutFocusReason;
  if (by_key && CurrentRow() < 0) {
    SelectRow(0);
  }
  update();
}

void Grid::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  update();
}

QString Grid::SelectedText() const {
  QStringList lines;
  QModelIndexList rows = selectionModel()->selectedRows();
  std::ranges::sort(rows, {}, &QModelIndex::row);
  for (const QModelIndex& row : rows) {
    QStringList cells;
    for (int place = 0; place < model_->columnCount(); ++place) {
      const int column = header_->logicalIndex(place);
      if (!isColumnHidden(column) && model_->TickColumn() != column) {
        cells.append(model_->Text(row.row(), column));
      }
    }
    lines.append(cells.join(QLatin1Char('\t')));
  }
  return lines.join(QLatin1Char('\n'));
}

void Grid::FitColumns() {
  const QScopedValueRollback<bool> fitting(fitting_, true);
  ColumnFit(*this, *model_).Apply();
}

}  // namespace quorvane::controls
