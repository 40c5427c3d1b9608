#include "reports/mis/window/OptionPairView.h"

#include "controls/Style.h"

#include <QHBoxLayout>

namespace quorvane::mis {

OptionPairView::OptionPairView(int first, const QString& one, const QString& other,
                               const QString& purpose)
    : group_(new QButtonGroup(this)) {
  setAccessibleName(purpose);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(controls::kSpacing);
  int number = 0;
  for (const QString& caption : {one, other}) {
    auto* button = new QRadioButton(caption);
    button->setObjectName(QStringLiteral("Option1_%1").arg(first + number));
    button->setChecked(number == 0);
    group_->addButton(button, number++);
    row->addWidget(button);
  }
  row->addStretch(1);
  connect(group_, &QButtonGroup::idClicked, this, &OptionPairView::Clicked);
}

}  // namespace quorvane::mis
