#include "ui/main/MenuBar.h"

#include <QShortcutEvent>

#include <utility>

namespace quorvane::ui {

MenuBar::MenuBar(std::function<bool(const QKeySequence& key)> child_takes)
    : child_takes_(std::move(child_takes)) {}

bool MenuBar::event(QEvent* event) {
  if (event->type() == QEvent::Shortcut) {
    const auto& shortcut = *static_cast<QShortcutEvent*>(event);
    if (shortcut.isAmbiguous() && child_takes_(shortcut.key())) {
      return true;
    }
  }
  return QMenuBar::event(event);
}

}  // namespace quorvane::ui
