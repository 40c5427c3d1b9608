#include "controls/ChildWindow.h"

#include "controls/TextBox.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorvane::controls {
namespace {

int Scaled(int length, float factor) {
  return static_cast<int>(std::lround(static_cast<float>(length) * factor));
}

// Named controls are the window's own; parts of controls carry no name or one of Qt's.
bool IsOwnControl(const QWidget& control) {
  return !control.objectName().isEmpty() && !control.objectName().startsWith(QLatin1String("qt_"));
}

void ScaleControl(QWidget& control, const app::ScreenFactors& factors) {
  if (control.minimumWidth() == control.maximumWidth()) {
    control.setFixedWidth(Scaled(control.minimumWidth(), factors.horizontal));
  }
  if (control.minimumHeight() == control.maximumHeight()) {
    control.setFixedHeight(Scaled(control.minimumHeight(), factors.vertical));
  }
}

}  // namespace

ChildWindow::ChildWindow(Desk& desk, const QString& name, const QString& title, QSize designed)
    : desk_(desk), guard_(desk.messages), designed_(designed) {
  setObjectName(name);
  setWindowTitle(title);
  setAttribute(Qt::WA_DeleteOnClose);
  connect(this, &ChildWindow::HelpRequested, this, [this](const QString& window_name) {
    guard_.Run(QStringLiteral("mnuHelp_Click"), [&] { desk_.help(window_name, this); });
  });
}

void ChildWindow::OpenIn(QMdiArea& area) {
  ScaleForm();
  QMdiSubWindow* frame = area.addSubWindow(this);
  frame->setAttribute(Qt::WA_DeleteOnClose);
  connect(&area, &QMdiArea::subWindowActivated, this, [this, frame](const QMdiSubWindow* active) {
    if (active == frame) {
      Activated();
    }
  });
  show();
  frame->resize(frame->size().boundedTo(area.viewport()->size()));
  const QPoint most(area.viewport()->width() - frame->width(),
                    area.viewport()->height() - frame->height());
  frame->move(std::min(frame->x(), most.x()), std::min(frame->y(), most.y()));
}

bool ChildWindow::IsFrontChild() const {
  const auto* frame = qobject_cast<const QMdiSubWindow*>(parentWidget());
  return frame == nullptr || frame->mdiArea() == nullptr ||
         frame->mdiArea()->activeSubWindow() == frame;
}

bool ChildWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && IsFrontChild()) {
    QTimer::singleShot(0, this, [this] { Activated(); });
  }
  return QWidget::event(event);
}

void ChildWindow::OpenModal(QWidget* parent) {
  setParent(parent, Qt::Dialog);
  setWindowModality(Qt::ApplicationModal);
  ScaleForm();
  resize(sizeHint());
  show();
}

QSize ChildWindow::sizeHint() const {
  const app::ScreenFactors& factors = desk_.session.screen_factors;
  const QSize wished(Scaled(designed_.width(), factors.horizontal),
                     Scaled(designed_.height(), factors.vertical));
  return wished.boundedTo(screen()->availableSize());
}

void ChildWindow::ScaleForm() {
  if (std::exchange(scaled_, true)) {
    return;
  }
  for (QWidget* control : findChildren<QWidget*>()) {
    if (IsOwnControl(*control)) {
      ScaleControl(*control, desk_.session.screen_factors);
    }
  }
}

QWidget* ChildWindow::FieldNamed(const QString& name) const {
  return name.isEmpty() ? nullptr : findChild<QWidget*>(name);
}

void ChildWindow::CompleteFrom(TextBox* box, TextBox::Completions source) {
  box->SetCompletionSource([this, box, source = std::move(source)] {
    QStringList texts;
    guard_.Run(box->objectName() + QLatin1String("_GotFocus"), [&] { texts = source(); });
    return texts;
  });
}

bool ChildWindow::IsCancelling() const {
  const auto* button = qobject_cast<const ZENButton*>(QApplication::focusWidget());
  return closing_ || !isVisible() || (button != nullptr && button->Cancels());
}

void ChildWindow::Watch(DateBox* box) {
  box->SetToday(desk_.today);
  connect(box, &DateBox::Refused, this,
          [this, box](const QString& text) { DateRefused(box, text); });
}

void ChildWindow::DateRefused(DateBox* box, const QString& text) {
  if (!IsCancelling()) {
    Show({.text = text, .field = box->objectName()});
  }
}

void ChildWindow::Show(const Refusal& refusal, Icon icon) {
  if (icon == Icon::kCritical) {
    Say().Refuse(refusal.text);
  } else {
    Say().Inform(refusal.text);
  }
  if (QWidget* field = FieldNamed(refusal.field)) {
    Reveal(field);
    field->setFocus(Qt::OtherFocusReason);
    // Closing a message box gives the focus back without the selection of an entry.
    const auto* list = qobject_cast<QComboBox*>(field);
    if (auto* box = list == nullptr ? qobject_cast<QLineEdit*>(field) : list->lineEdit()) {
      box->selectAll();
    }
  }
}

// Boxes leave to the window the keys that they do not use themselves.
void ChildWindow::keyPressEvent(QKeyEvent* event) {
  if (IsEnter(*event)) {
    focusNextPrevChild(true);
  } else if (event->key() == Qt::Key_Escape) {
    EscapePressed();
  } else if (event->matches(QKeySequence::HelpContents)) {
    Q_EMIT HelpRequested(objectName());
  } else {
    QWidget::keyPressEvent(event);
  }
}

void ChildWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!std::exchange(was_shown_, true)) {
    QMetaObject::invokeMethod(
        this, [this] { guard_.Run(QStringLiteral("Form_Activate"), [this] { FirstShown(); }); },
        Qt::QueuedConnection);
  }
}

void ChildWindow::closeEvent(QCloseEvent* event) {
  if (!closing_ && !MayClose()) {
    event->ignore();
    return;
  }
  if (!std::exchange(closing_, true)) {
    // The frame goes with its window, whichever of the two was closed first.
    if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget())) {
      frame->deleteLater();
    }
    Q_EMIT Closed();
  }
}

}  // namespace quorvane::controls
