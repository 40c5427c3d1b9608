#include "controls/GridDelegate.h"

#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/GridModel.h"
#include "controls/TextBox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace quorvane::controls {
namespace {

const GridModel& ModelOf(const QModelIndex& index) {
  return *static_cast<const GridModel*>(index.model());
}

const Column& ColumnOf(const QModelIndex& index) {
  return ModelOf(index).Columns()[static_cast<std::size_t>(index.column())];
}

TextBox* MakeTextBox(const Column& column) {
  auto* box = new TextBox();
  box->SetUpperCase(column.upper_case);
  if (column.max_length > 0) {
    box->setMaxLength(column.max_length);
  }
  return box;
}

TextBox* MakeBox(const Column& column) {
  switch (column.mask) {
    case Mask::kDate:
      return new DateBox();
    case Mask::kAmount:
      return new AmountBox();
    case Mask::kNumber:
      return new NumberBox();
    case Mask::kPercent:
      return new AmountBox(nullptr, AmountBox::Form::kPercent);
    default:
      return MakeTextBox(column);
  }
}

QWidget* MakeEditor(const QModelIndex& index) {
  const ValueList& choices = ModelOf(index).ChoicesOf(index.row(), index.column());
  if (choices.IsEmpty()) {
    TextBox* box = MakeBox(ColumnOf(index));
    box->setFrame(false);
    return box;
  }
  auto* list = new ComboBox();
  list->SetItems(choices.Items());
  return list;
}

QVariant EnteredIn(const QWidget& editor) {
  if (const auto* list = qobject_cast<const ComboBox*>(&editor)) {
    return list->HasChoice() ? QVariant(list->CurrentId()) : QVariant();
  }
  if (const auto* amount = qobject_cast<const AmountBox*>(&editor)) {
    return amount->Amount();
  }
  if (const auto* date = qobject_cast<const DateBox*>(&editor)) {
    return date->IsProper() ? QVariant(date->DateText()) : QVariant();
  }
  return static_cast<const TextBox&>(editor).text();
}

}  // namespace

QWidget* GridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& index) const {
  QWidget* editor = MakeEditor(index);
  editor->setParent(parent);
  editor->setMinimumHeight(0);
  editor->setAccessibleName(ColumnOf(index).heading);
  return editor;
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  if (auto* list = qobject_cast<ComboBox*>(editor)) {
    const QVariant value = ModelOf(index).Value(index.row(), index.column());
    if (value.isValid()) {
      list->ById(value.toInt());
    }
  } else {
    static_cast<TextBox*>(editor)->setText(index.data(Qt::EditRole).toString());
  }
}

void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                const QModelIndex& index) const {
  const auto* box = qobject_cast<const QLineEdit*>(editor);
  if (box != nullptr && box->text() == index.data(Qt::EditRole).toString()) {
    return;  // nothing typed: the value keeps what its mask does not show
  }
  const QVariant entered = EnteredIn(*editor);
  if (entered.isValid()) {
    model->setData(index, entered, Qt::EditRole);
  } else if (qobject_cast<DateBox*>(editor) != nullptr) {
    Q_EMIT Refused(tr("Enter Proper Date."));
  }
}

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
  option->state.setFlag(QStyle::State_HasFocus,
                        option->state.testFlag(QStyle::State_HasFocus) && ColumnOf(index).editable);
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const QVariant tick = index.data(Qt::CheckStateRole);
  if (!tick.isValid()) {
    return;
  }
  QStyleOptionButton box;
  box.palette = option.palette;
  const QStyle& style = *QApplication::style();
  const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth),
                   style.pixelMetric(QStyle::PM_IndicatorHeight));
  box.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, size, option.rect);
  box.state =
      QStyle::State_Enabled | (tick.toInt() == Qt::Checked ? QStyle::State_On : QStyle::State_Off);
  style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, painter, option.widget);
}

// A click anywhere in the cell ticks, not only one on the small box.
bool GridDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                               const QStyleOptionViewItem& option, const QModelIndex& index) {
  const QVariant tick = index.data(Qt::CheckStateRole);
  if (!tick.isValid()) {
    return QStyledItemDelegate::editorEvent(event, model, option, index);
  }
  const bool click = event->type() == QEvent::MouseButtonRelease &&
                     static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
  if (click) {
    model->setData(index, tick.toInt() == Qt::Checked ? Qt::Unchecked : Qt::Checked,
                   Qt::CheckStateRole);
  }
  return click || event->type() == QEvent::MouseButtonDblClick;
}

bool GridDelegate::eventFilter(QObject* watched, QEvent* event) {
  auto* editor = qobject_cast<QWidget*>(watched);
  if (event->type() == QEvent::KeyPress && editor != nullptr &&
      IsEnter(*static_cast<QKeyEvent*>(event))) {
    Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor, EditNextItem);
    return true;
  }
  return QStyledItemDelegate::eventFilter(watched, event);
}

}  // namespace quorvane::controls
