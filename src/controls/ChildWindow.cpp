#include "controls/ChildWindow.h"

#include "controls/Grid.h"
#include "controls/TextBox.h"
#include "controls/WindowMemory.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QShortcut>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorvane::controls {
namespace {

int Scaled(int length, float factor) {
  return static_cast<int>(std::lround(static_cast<float>(length) * factor));
}

constexpr int kStep = 26;  // between windows that would open at one place

bool IsTakenPlace(const QMdiArea& area, const QMdiSubWindow& frame, QPoint place) {
  return std::ranges::any_of(area.subWindowList(), [&](const QMdiSubWindow* other) {
    return other != &frame && other->isVisible() && other->pos() == place;
  });
}

/// The window fills the area behind a tab: it has no place of its own.
bool IsTab(const QMdiSubWindow& frame) {
  return frame.mdiArea() != nullptr && frame.mdiArea()->viewMode() == QMdiArea::TabbedView;
}

bool IsInSight(const QWidget* widget) {
  return widget != nullptr && widget->isVisible() && widget->isEnabled();
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
  if (!IsTab(*frame)) {
    frame->setGeometry(PlaceIn(area, *frame));
  }
  RestoreColumns();
  opened_at_ = frame->geometry();
  if (!IsTab(*frame) && WindowMemory(desk_.session.folders).IsMaximized(objectName())) {
    frame->showMaximized();
  }
}

QRect ChildWindow::PlaceIn(const QMdiArea& area, const QMdiSubWindow& frame) const {
  const QRect whole(QPoint(), area.viewport()->size());
  const auto remembered = WindowMemory(desk_.session.folders).Place(objectName());
  QRect place = Inside(remembered.value_or(frame.geometry()), whole);
  while (IsTakenPlace(area, frame, place.topLeft())) {
    const QRect moved = Inside(place.translated(kStep, kStep), whole);
    if (moved == place) {
      break;
    }
    place = moved;
  }
  return place;
}

void ChildWindow::RestoreColumns() {
  const WindowMemory memory(desk_.session.folders);
  for (ListHeader* header : findChildren<ListHeader*>()) {
    header->KeepIn(memory, objectName());
  }
  for (Grid* grid : findChildren<Grid*>()) {
    grid->SetWidths(memory.Numbers(objectName(), grid->objectName()));
  }
}

/// Only what the user changed: another screen has other sizes.
void ChildWindow::Remember() const {
  const WindowMemory memory(desk_.session.folders);
  for (const Grid* grid : findChildren<Grid*>()) {
    if (const QList<int> widths = grid->WidthsByHand(); !widths.isEmpty()) {
      memory.KeepNumbers(objectName(), grid->objectName(), widths);
    }
  }
  const auto* sub_window = qobject_cast<const QMdiSubWindow*>(parentWidget());
  if (sub_window != nullptr && IsTab(*sub_window)) {
    return;
  }
  const QWidget& frame = sub_window == nullptr ? *static_cast<const QWidget*>(this) : *sub_window;
  if (frame.isMinimized() || (sub_window != nullptr && sub_window->isShaded())) {
    return;
  }
  memory.KeepMaximized(objectName(), frame.isMaximized());
  if (!frame.isMaximized() && frame.geometry() != opened_at_) {
    memory.KeepPlace(objectName(), frame.geometry());
  }
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
  const auto remembered = WindowMemory(desk_.session.folders).Place(objectName());
  if (remembered) {
    setGeometry(Inside(*remembered, screen()->availableGeometry()));
  } else {
    resize(sizeHint());
  }
  show();
  RestoreColumns();
  opened_at_ = geometry();
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

void ChildWindow::Hold(const std::vector<FieldControl>& controls) {
  for (const FieldControl& one : controls) {
    controls_[one.field] = one.control;
  }
}

void ChildWindow::PressOn(const QKeySequence& keys, QAbstractButton* button) {
  auto* shortcut = new QShortcut(keys, this);
  shortcut->setContext(Qt::WidgetWithChildrenShortcut);
  connect(shortcut, &QShortcut::activated, button, [button] { Press(*button); });
}

void ChildWindow::Press(QAbstractButton& button) {
  if (button.isEnabled()) {
    button.setFocus(Qt::ShortcutFocusReason);
    if (button.hasFocus() || !button.isActiveWindow()) {
      button.click();
    }
  }
}

bool ChildWindow::PressKey(const QKeySequence& key) {
  for (QAbstractButton* button : findChildren<QAbstractButton*>()) {
    if (button->shortcut() == key && IsInSight(button)) {
      Press(*button);
      return true;
    }
  }
  for (const QLabel* label : findChildren<QLabel*>()) {
    if (QKeySequence::mnemonic(label->text()) == key && IsInSight(label->buddy())) {
      label->buddy()->setFocus(Qt::ShortcutFocusReason);
      return true;
    }
  }
  return false;
}

void ChildWindow::FocusFirst() {
  QWidget* focused = QApplication::focusWidget();
  if (focused == nullptr || (focused != this && !isAncestorOf(focused))) {
    focusNextPrevChild(true);
  }
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
    ShowAt(text, box);
  }
}

void ChildWindow::Show(const Refusal& refusal) {
  const auto control = controls_.find(refusal.field);
  ShowAt(refusal.text, control == controls_.end() ? nullptr : findChild<QWidget*>(control->second));
}

void ChildWindow::ShowAt(const QString& text, QWidget* control) {
  if (!text.isEmpty()) {
    Say().Refuse(text);
  }
  if (control == nullptr) {
    return;
  }
  Reveal(control);
  control->setFocus(Qt::OtherFocusReason);
  // Closing a message box gives the focus back without the selection of an entry.
  const auto* list = qobject_cast<QComboBox*>(control);
  if (auto* box = list == nullptr ? qobject_cast<QLineEdit*>(control) : list->lineEdit()) {
    box->selectAll();
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

bool ChildWindow::AgreeToClose() {
  agreed_ = agreed_ || closing_ || MayClose();
  return agreed_;
}

void ChildWindow::closeEvent(QCloseEvent* event) {
  if (!AgreeToClose()) {
    event->ignore();
    return;
  }
  if (!std::exchange(closing_, true)) {
    Remember();
    // The frame goes with its window, whichever of the two was closed first.
    if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget())) {
      frame->deleteLater();
    }
    Q_EMIT Closed();
  }
}

}  // namespace quorvane::controls
