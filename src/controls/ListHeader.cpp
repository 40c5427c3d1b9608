#include "controls/ListHeader.h"

#include "controls/Style.h"
#include "controls/TextBox.h"

#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTableView>

#include <algorithm>
#include <cmath>

namespace quorvane::controls {
namespace {

constexpr int kHandful = 8;  // rows from which on the box is shown
constexpr int kBoxPadding = 6;
constexpr int kLowList = 7 * kBoxHeight;

}  // namespace

ListHeader::ListHeader(QTableView& list)
    : QHeaderView(Qt::Horizontal, &list), list_(list), box_(new QLineEdit(this)) {
  setHighlightSections(false);
  setSectionsClickable(true);
  BuildBox();
  setContextMenuPolicy(Qt::CustomContextMenu);
  connect(this, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& at) { OpenMenu(mapToGlobal(at)); });
  connect(this, &QHeaderView::sectionMoved, this, [this] {
    if (!arranging_) {
      Keep();
      Q_EMIT Arranged();
    }
  });
}

void ListHeader::BuildBox() {
  box_->setObjectName(QStringLiteral("TxtFilter"));
  box_->setAccessibleName(tr("Filter of %1").arg(list_.accessibleName()));
  box_->setPlaceholderText(tr("Filter the list (F3)"));
  box_->setClearButtonEnabled(true);
  // F3 reaches it: the Tab key goes from control to control of the window as ever.
  box_->setFocusPolicy(Qt::ClickFocus);
  box_->installEventFilter(this);
  box_->hide();
  connect(box_, &QLineEdit::textChanged, this, [this] {
    ShowBox();
    Q_EMIT FilterChanged();
  });
}

void ListHeader::SetFilterable(bool on) {
  filterable_ = on;
  ShowBox();
}

void ListHeader::SetArrangeable(bool on) {
  arrangeable_ = on;
  setSectionsMovable(on);
}

void ListHeader::FocusFilter() {
  if (filterable_) {
    box_->show();
    PlaceBox();
    box_->setFocus(Qt::ShortcutFocusReason);
    box_->selectAll();
  }
}

void ListHeader::RowsChanged(int rows) {
  rows_ = rows;
  ShowBox();
}

void ListHeader::ShowBox() {
  const bool has_use = rows_ >= kHandful && list_.height() >= kLowList;
  const bool shown = filterable_ && (has_use || !box_->text().isEmpty() || box_->hasFocus());
  if (shown != box_->isVisibleTo(this)) {
    box_->setVisible(shown);
    PlaceBox();
  }
}

void ListHeader::PlaceBox() {
  box_->setGeometry(0, HeadingHeight(), width(), FilterHeight());
  updateGeometry();
  Q_EMIT geometriesChanged();
  viewport()->update();
}

int ListHeader::HeadingHeight() const {
  return fontMetrics().height() + kSpacing + kTightSpacing;
}

int ListHeader::FilterHeight() const {
  return box_->isVisibleTo(this) ? fontMetrics().height() + kSpacing + kBoxPadding : 0;
}

QSize ListHeader::sizeHint() const {
  return {QHeaderView::sizeHint().width(), HeadingHeight() + FilterHeight()};
}

void ListHeader::paintSection(QPainter* painter, const QRect& area, int section) const {
  QHeaderView::paintSection(painter, area.adjusted(0, 0, 0, -FilterHeight()), section);
}

void ListHeader::resizeEvent(QResizeEvent* event) {
  QHeaderView::resizeEvent(event);
  box_->setGeometry(0, HeadingHeight(), width(), FilterHeight());
}

bool ListHeader::eventFilter(QObject* watched, QEvent* event) {
  if (watched != box_) {
    return QHeaderView::eventFilter(watched, event);
  }
  if (event->type() == QEvent::FocusOut) {
    QMetaObject::invokeMethod(this, &ListHeader::ShowBox, Qt::QueuedConnection);
  }
  if (event->type() != QEvent::KeyPress) {
    return false;
  }
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.key() == Qt::Key_Escape) {
    box_->clear();
  } else if (!IsEnter(key) && key.key() != Qt::Key_Down) {
    return false;
  }
  list_.setFocus(Qt::ShortcutFocusReason);
  return true;
}

bool ListHeader::TakesKey(const QKeyEvent& event) {
  if (event.key() != Qt::Key_F3) {
    return false;
  }
  if (event.modifiers() == Qt::ShiftModifier) {
    OpenMenu(mapToGlobal(QPoint(0, HeadingHeight())));
  } else if (event.modifiers() == Qt::NoModifier) {
    FocusFilter();
  } else {
    return false;
  }
  return true;
}

QString ListHeader::HeadingOf(int column) const {
  return model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
}

bool ListHeader::IsOffered(int column) const {
  return !hidden_by_program_.value(column) && !HeadingOf(column).isEmpty();
}

int ListHeader::ShownCount() const {
  int shown = 0;
  for (int column = 0; column < count(); ++column) {
    shown += IsOffered(column) && !isSectionHidden(column) ? 1 : 0;
  }
  return shown;
}

void ListHeader::OpenMenu(const QPoint& at) {
  auto* menu = new QMenu(this);
  menu->setObjectName(QStringLiteral("mnuColumns"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  FillMenu(*menu);
  if (menu->isEmpty()) {
    delete menu;
  } else {
    menu->popup(at);
  }
}

void ListHeader::FillMenu(QMenu& menu) {
  if (sortable_) {
    AddSorting(menu);
  }
  if (arrangeable_ && count() > 1) {
    AddShownColumns(menu);
    if (sectionsMovable()) {
      AddMoves(menu);
    }
    menu.addSeparator();
    menu.addAction(tr("Columns as They Were at First"), this, &ListHeader::Restore);
  }
}

void ListHeader::AddSorting(QMenu& menu) {
  QMenu* by = menu.addMenu(tr("Sort by"));
  for (int column = 0; column < count(); ++column) {
    if (IsOffered(column) && !isSectionHidden(column)) {
      by->addAction(HeadingOf(column), this, [this, column] {
        const bool again = wanted_ == Order{column, Qt::AscendingOrder};
        Q_EMIT SortWanted(column, again ? Qt::DescendingOrder : Qt::AscendingOrder);
      });
    }
  }
}

void ListHeader::AddShownColumns(QMenu& menu) {
  QMenu* columns = menu.addMenu(tr("Columns Shown"));
  for (int column = 0; column < count(); ++column) {
    if (IsOffered(column)) {
      QAction* shown = columns->addAction(HeadingOf(column));
      shown->setCheckable(true);
      shown->setChecked(!isSectionHidden(column));
      // One column stays.
      shown->setEnabled(isSectionHidden(column) || ShownCount() > 1);
      connect(shown, &QAction::toggled, this, [this, column](bool on) { Toggle(column, on); });
    }
  }
}

void ListHeader::AddMoves(QMenu& menu) {
  QMenu* moves = menu.addMenu(tr("Move a Column"));
  for (int column = 0; column < count(); ++column) {
    if (!IsOffered(column) || isSectionHidden(column)) {
      continue;
    }
    for (const int step : {-1, 1}) {
      const QString text = step < 0 ? tr("%1 to the Left") : tr("%1 to the Right");
      moves
          ->addAction(text.arg(HeadingOf(column)), this,
                      [this, column, step] { Move(column, step); })
          ->setEnabled(Neighbour(column, step) >= 0);
    }
  }
}

/// The place of the next column in sight; -1 when there is none.
int ListHeader::Neighbour(int column, int step) const {
  int place = visualIndex(column) + step;
  while (place >= 0 && place < count() && isSectionHidden(logicalIndex(place))) {
    place += step;
  }
  return place >= 0 && place < count() ? place : -1;
}

void ListHeader::Move(int column, int step) {
  moveSection(visualIndex(column), Neighbour(column, step));
}

void ListHeader::Toggle(int column, bool shown) {
  list_.setColumnHidden(column, !shown);
  Keep();
  Q_EMIT Arranged();
}

void ListHeader::Restore() {
  QList<int> as_given;
  for (int column = 0; column < count(); ++column) {
    as_given << column + 1;
  }
  Arrange(as_given);
  wanted_.reset();
  setSortIndicatorShown(false);
  if (memory_) {
    memory_->Keep(window_, Key("Columns"), {});
    memory_->Keep(window_, Key("Sort"), {});
  }
  Q_EMIT Arranged();
  Q_EMIT SortWanted(-1, Qt::AscendingOrder);
}

void ListHeader::ColumnsChanged() {
  const QScopedValueRollback<bool> arranging(arranging_, true);
  hidden_by_program_.clear();
  for (int column = 0; column < count(); ++column) {
    moveSection(visualIndex(column), column);
  }
  for (int column = 0; column < count(); ++column) {
    hidden_by_program_ << isSectionHidden(column);
  }
  wanted_.reset();
  ReadKept();
}

void ListHeader::KeepIn(const WindowMemory& memory, const QString& window) {
  memory_ = memory;
  window_ = window;
  ReadKept();
}

// A list with other columns, such as another report of one window, has an arrangement of its own.
QString ListHeader::Key(const char* what) const {
  return QStringLiteral("%1.%2%3").arg(list_.objectName(), QLatin1String(what)).arg(count());
}

/// Each column's number, counted from 1, in the order from left to right; hidden ones negative.
QList<int> ListHeader::Arrangement() const {
  QList<int> arrangement;
  for (int place = 0; place < count(); ++place) {
    const int column = logicalIndex(place);
    const bool hidden = isSectionHidden(column) && !hidden_by_program_.value(column);
    arrangement << (hidden ? -(column + 1) : column + 1);
  }
  return arrangement;
}

void ListHeader::Arrange(const QList<int>& arrangement) {
  QList<int> columns;
  for (const int number : arrangement) {
    columns << std::abs(number) - 1;
  }
  QList<int> sorted = columns;
  std::ranges::sort(sorted);
  bool is_whole = sorted.size() == count();
  for (int column = 0; is_whole && column < count(); ++column) {
    is_whole = sorted[column] == column;
  }
  if (!is_whole) {
    return;
  }
  const QScopedValueRollback<bool> arranging(arranging_, true);
  for (int place = 0; place < count(); ++place) {
    const int column = columns[place];
    moveSection(visualIndex(column), place);
    if (!hidden_by_program_.value(column)) {
      list_.setColumnHidden(column, arrangement[place] < 0);
    }
  }
}

void ListHeader::ReadKept() {
  if (!memory_ || count() == 0) {
    return;
  }
  if (arrangeable_) {
    Arrange(memory_->Numbers(window_, Key("Columns")));
    Q_EMIT Arranged();
  }
  const QList<int> sort = memory_->Numbers(window_, Key("Sort"));
  if (sort.size() == 2 && sort[0] >= 0 && sort[0] < count() && sortable_) {
    wanted_ = Order{sort[0], sort[1] == 0 ? Qt::AscendingOrder : Qt::DescendingOrder};
    Q_EMIT SortWanted(wanted_->column, wanted_->direction);
  }
}

void ListHeader::Keep() {
  if (memory_ && arrangeable_) {
    memory_->KeepNumbers(window_, Key("Columns"), Arrangement());
  }
}

void ListHeader::Want(const Order& order) {
  wanted_ = order;
  if (memory_) {
    memory_->KeepNumbers(window_, Key("Sort"),
                         {order.column, order.direction == Qt::AscendingOrder ? 0 : 1});
  }
}

}  // namespace quorvane::controls
