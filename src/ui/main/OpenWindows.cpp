#include "ui/main/OpenWindows.h"

#include "ui/Features.h"

#include <QEvent>
#include <QMdiSubWindow>
#include <QTabBar>

#include <algorithm>
#include <stdexcept>

namespace quorvane::ui {
namespace {

using controls::ChildWindow;

constexpr int kGroundDarker = 106;  // per cent of the windows' ground

QColor GroundOf(const QPalette& palette) {
  return palette.color(QPalette::Window).darker(kGroundDarker);
}

}  // namespace

OpenWindows::OpenWindows(reporting::ReportDesk& desk) : desk_(desk) {
  setObjectName(QStringLiteral("MDIExtend1"));
  setBackground(GroundOf(palette()));
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  // When a window closes, the one before it comes back.
  setActivationOrder(QMdiArea::ActivationHistoryOrder);
}

ChildWindow* OpenWindows::Show(const QString& name) {
  const QString key = KeyOf(name);
  if (const auto found = open_.find(key); found != open_.end()) {
    BringToFront(*found->second);
    return found->second;
  }
  const Feature* feature = FindFeature(name);
  if (feature == nullptr || feature->make == nullptr) {
    throw std::runtime_error(tr("There is no window %1.").arg(name).toStdString());
  }
  ChildWindow* child = feature->make(desk_);
  open_[key] = child;
  connect(child, &ChildWindow::Closed, this, [this, key] {
    open_.erase(key);
    Q_EMIT Closed();
  });
  Q_EMIT Opening();
  child->OpenIn(*this);
  child->FocusFirst();
  return child;
}

void OpenWindows::BringToFront(ChildWindow& window) {
  auto* frame = qobject_cast<QMdiSubWindow*>(window.parentWidget());
  if (frame->isMinimized()) {
    frame->showNormal();
  }
  setActiveSubWindow(frame);
  window.AskedAgain();
}

// A window that works on the client and year of its opening is no window for another client.
QString OpenWindows::KeyOf(const QString& name) const {
  const std::optional<ClientYear>& current = desk_.session.current;
  const Feature* feature = FindFeature(name);
  if (!current || feature == nullptr || feature->action != MenuAction::kClientSelection) {
    return name;
  }
  return QStringLiteral("%1 %2 %3").arg(name, current->year.Text()).arg(current->client.value);
}

ChildWindow* OpenWindows::Front() const {
  const QMdiSubWindow* frame = activeSubWindow();
  return frame == nullptr ? nullptr : qobject_cast<ChildWindow*>(frame->widget());
}

QString OpenWindows::NameOf(const ChildWindow* window) const {
  const auto found = std::ranges::find(open_, window, [](const auto& one) { return one.second; });
  return found == open_.end() ? QString() : found->first.section(QLatin1Char(' '), 0, 0);
}

void OpenWindows::ShowTabs(bool on) {
  setViewMode(on ? QMdiArea::TabbedView : QMdiArea::SubWindowView);
  setTabsClosable(true);
  setTabsMovable(true);
  setDocumentMode(true);
  if (auto* tabs = findChild<QTabBar*>()) {
    tabs->setAccessibleName(tr("Open windows"));
  }
}

// Those that are open over the main window count as well.
bool OpenWindows::MayClose() {
  const auto children = window()->findChildren<ChildWindow*>();
  for (ChildWindow* child : children) {
    if (!child->AgreeToClose()) {
      std::ranges::for_each(children, &ChildWindow::StayOpen);
      if (auto* frame = qobject_cast<QMdiSubWindow*>(child->parentWidget())) {
        setActiveSubWindow(frame);
      }
      return false;
    }
  }
  return true;
}

void OpenWindows::CloseAll() {
  for (ChildWindow* child : window()->findChildren<ChildWindow*>()) {
    child->close();
  }
  closeAllSubWindows();
}

void OpenWindows::changeEvent(QEvent* event) {
  QMdiArea::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) {
    setBackground(GroundOf(palette()));
  }
}

}  // namespace quorvane::ui
