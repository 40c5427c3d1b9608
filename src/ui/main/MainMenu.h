#pragma once

#include "ui/Features.h"

#include <QMenuBar>

#include <functional>

class QHBoxLayout;
class QMainWindow;

namespace quorvane::ui {

/// Builds the menu table into a window's menu bar. Every item is an action under its own name.
/// `chosen` is called with the item that the user chose.
void BuildMenu(QMainWindow& window, const std::function<void(const Feature&)>& chosen);

/// The buttons "ZENButton1_0" and so on for the items that are used daily. Each does what its item
/// in the window's menu does.
void BuildButtonRow(QMainWindow& window, QHBoxLayout& row);

/// Writes the captions of menu and buttons anew, in the language in force.
void ShowCaptions(QMainWindow& window);

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
