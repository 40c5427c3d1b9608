#pragma once

#include <QMenuBar>

#include <functional>

namespace quorvane::ui {

/// A menu bar that leaves an access key to the window inside the main window when that has the same
/// one: Alt+R is "Report" in a window with such a button, and the menu "Report" elsewhere.
class MenuBar : public QMenuBar {
  Q_OBJECT

 public:
  /// `child_takes` presses the key in the window in front; false when it has none.
  explicit MenuBar(std::function<bool(const QKeySequence& key)> child_takes);

 protected:
  bool event(QEvent* event) override;

 private:
  std::function<bool(const QKeySequence& key)> child_takes_;
};

}  // namespace quorvane::ui
