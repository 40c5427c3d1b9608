#include "controls/PickList.h"

#include "controls/GridModel.h"
#include "controls/TextBox.h"

#include <QKeyEvent>

#include <algorithm>

namespace quorvane::controls {
namespace {

constexpr int kMostRows = 8;

template <class Fits>
int RowWhere(const std::vector<lookups::Item>& items, const Fits& fits) {
  const auto found = std::ranges::find_if(items, fits);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

}  // namespace

PickList::PickList(const QString& name, TextBox* box, QWidget* window)
    : QListView(window), box_(box), items_(new ItemModel(this)) {
  setObjectName(name);
  setAccessibleName(box->accessibleName());
  setModel(items_);
  setUniformItemSizes(true);
  setFocusPolicy(Qt::NoFocus);
  setAutoFillBackground(true);
  hide();
  box->installEventFilter(this);
  connect(box, &TextBox::Entered, this, &PickList::Open);
  connect(box, &TextBox::Left, this, &QWidget::hide);
  connect(box, &QLineEdit::textEdited, this, &PickList::Follow);
  connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& item) {
    Pick(item.row());
    hide();
  });
}

void PickList::SetItems(std::vector<lookups::Item> items) {
  QStringList texts;
  for (const lookups::Item& item : items) {
    texts.append(item.text);
  }
  items_->SetItems(std::move(items));
  box_->SetCompletions(texts);
}

int PickList::RowOfText() const {
  const auto same = [this](const lookups::Item& item) {
    return item.text.compare(box_->text(), Qt::CaseInsensitive) == 0;
  };
  const int picked = RowWhere(
      items_->Items(), [&](const lookups::Item& item) { return item.id == picked_ && same(item); });
  return picked >= 0 ? picked : RowWhere(items_->Items(), same);
}

int PickList::CurrentId() const {
  const int row = RowOfText();
  return row < 0 ? 0 : items_->Items()[static_cast<std::size_t>(row)].id;
}

void PickList::ById(int id) {
  const int row =
      RowWhere(items_->Items(), [id](const lookups::Item& item) { return item.id == id; });
  if (row < 0) {
    box_->clear();
  } else {
    Pick(row);
  }
}

void PickList::Pick(int row) {
  const lookups::Item& item = items_->Items()[static_cast<std::size_t>(row)];
  picked_ = item.id;
  box_->setText(item.text);
  setCurrentIndex(items_->index(row));
}

void PickList::Open() {
  const int rows = std::min(items_->rowCount(), kMostRows);
  if (rows == 0 || box_->isReadOnly()) {
    return;
  }
  const QPoint below = box_->mapTo(parentWidget(), QPoint(0, box_->height()));
  setGeometry(QRect(below, QSize(box_->width(), rows * sizeHintForRow(0) + 2 * frameWidth())));
  setCurrentIndex(items_->index(RowOfText()));
  raise();
  show();
}

void PickList::Follow() {
  const QString typed = box_->text();
  const int row = RowWhere(items_->Items(), [&](const lookups::Item& item) {
    return item.text.startsWith(typed, Qt::CaseInsensitive);
  });
  setCurrentIndex(items_->index(typed.isEmpty() ? -1 : row));
}

void PickList::Move(int step) {
  const int row = std::clamp(currentIndex().row() + step, 0, items_->rowCount() - 1);
  if (!isVisible()) {
    Open();
  } else {
    Pick(row);
    box_->selectAll();
  }
}

bool PickList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || items_->rowCount() == 0) {
    return QListView::eventFilter(watched, event);
  }
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Down || key == Qt::Key_Up) {
    Move(key == Qt::Key_Down ? 1 : -1);
    return true;
  }
  if (key == Qt::Key_Escape && isVisible()) {
    hide();
    return true;
  }
  return QListView::eventFilter(watched, event);
}

}  // namespace quorvane::controls
