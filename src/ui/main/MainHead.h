#pragma once

#include <QWidget>

class QBoxLayout;
class QLabel;
class QMainWindow;

namespace quorvane::controls {
class ZENButton;
}

namespace quorvane::ui {

/// The head of the main window: index headline, buttons of the market-rate tool, clock, and the row
/// of buttons `ZENButton1` for the menu items that are used daily. A click on any of them leaves
/// the keyboard in the window that has it.
class MainHead : public QWidget {
  Q_OBJECT

 public:
  /// The menu of `window` is built already.
  explicit MainHead(QMainWindow& window);

  /// Writes the captions in the language in force; the headline stays.
  void ShowTexts();

  /// Shows the time and day of now.
  void ShowTime();

  void ShowHeadline(const QString& headline);

  QWidget& ButtonRow() { return *button_row_; }

  controls::ZENButton* lblSensex;
  controls::ZENButton* lblLoaded;
  controls::ZENButton* LblChkUpdate;

 private:
  QBoxLayout* FirstLine();

  QLabel* LblTime;
  QLabel* LblDate;
  QWidget* button_row_;
  bool has_headline_ = false;
};

}  // namespace quorvane::ui
