#include "controls/FormPanel.h"

#include "controls/Grid.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QVBoxLayout>

namespace quorvane::controls {
namespace {

QString CellsOf(const Grid& grid) {
  QStringList cells;
  for (int row = 0; row < grid.Model().RowCount(); ++row) {
    for (int column = 0; column < grid.Model().columnCount(); ++column) {
      cells << grid.Model().Value(row, column).toString();
    }
  }
  return cells.join(QChar::Tabulation);
}

}  // namespace

FormContents::FormContents(const QWidget& panel) {
  for (const QWidget* control : panel.findChildren<QWidget*>()) {
    if (const auto* box = qobject_cast<const QLineEdit*>(control)) {
      texts_ << box->text();
    } else if (const auto* lines = qobject_cast<const QPlainTextEdit*>(control)) {
      texts_ << lines->toPlainText();
    } else if (const auto* list = qobject_cast<const QComboBox*>(control)) {
      texts_ << list->currentText();
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
      texts_ << (button->isChecked() ? QStringLiteral("1") : QString());
    } else if (const auto* grid = qobject_cast<const Grid*>(control)) {
      texts_ << CellsOf(*grid);
    }
  }
}

QScrollArea* Scrolling(QWidget* panel) {
  auto* area = new QScrollArea();
  area->setWidget(panel);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  return area;
}

void HintWhenEmpty(Grid& list, const QString& text) {
  auto* hint = new QLabel(text);
  hint->setAlignment(Qt::AlignCenter);
  hint->setWordWrap(true);
  hint->setEnabled(false);
  hint->setAttribute(Qt::WA_TransparentForMouseEvents);
  auto* box = new QVBoxLayout(list.viewport());
  box->setSizeConstraint(QLayout::SetNoConstraint);
  box->addWidget(hint);
  const auto show = [&list, hint] { hint->setVisible(list.Model().CountOfAll() == 0); };
  using Model = QAbstractItemModel;
  QObject::connect(&list.Model(), &Model::modelReset, hint, show);
  QObject::connect(&list.Model(), &Model::rowsInserted, hint, show);
  QObject::connect(&list.Model(), &Model::rowsRemoved, hint, show);
  show();
}

void FocusFirstField(QWidget& panel) {
  for (QWidget* field = panel.nextInFocusChain(); field != &panel;
       field = field->nextInFocusChain()) {
    const bool takes = (field->focusPolicy() & Qt::TabFocus) != 0 && field->isEnabled();
    if (takes && panel.isAncestorOf(field) && field->isVisibleTo(&panel)) {
      field->setFocus(Qt::TabFocusReason);
      return;
    }
  }
}

}  // namespace quorvane::controls
