#include "controls/FieldLayout.h"

#include "controls/Style.h"

#include <QLabel>
#include <QWidget>

namespace quorvane::controls {

QString PlainLabel(const QString& label) {
  QString plain = label;
  plain.remove(QLatin1Char('&'));
  if (plain.endsWith(QLatin1Char(':'))) {
    plain.chop(1);
  }
  return plain.trimmed();
}

FieldLayout::FieldLayout(int columns, QWidget* parent)
    : QGridLayout(parent), columns_(columns), fills_panel_(parent != nullptr) {
  setHorizontalSpacing(kSpacing);
  setVerticalSpacing(kSpacing);
  for (int column = 0; column < columns; ++column) {
    setColumnStretch(2 * column + 1, 1);
  }
}

void FieldLayout::NewRow() {
  if (at_ > 0) {
    at_ = 0;
    ++row_;
  }
}

void FieldLayout::AddField(const QString& label, const QString& name, QWidget* box, int span) {
  if (at_ + span > columns_) {
    NewRow();
  }
  auto* words = new QLabel(label);
  words->setBuddy(box);
  box->setObjectName(name);
  if (box->accessibleName().isEmpty()) {
    box->setAccessibleName(PlainLabel(label));
  }
  addWidget(words, row_, 2 * at_);
  addWidget(box, row_, 2 * at_ + 1, 1, 2 * span - 1);
  if (fills_panel_) {
    setRowStretch(row_, 0);
    setRowStretch(row_ + 1, 1);
  }
  at_ += span;
  if (at_ >= columns_) {
    NewRow();
  }
}

}  // namespace quorvane::controls
