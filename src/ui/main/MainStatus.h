#pragma once

#include <QObject>
#include <QPointer>

class QAbstractItemView;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QStatusBar;

namespace quorvane::ui {

/// The status bar `TXStatusBar1`: where the data is, and at which place the keyboard is: "Page" in
/// pages on the screen, "Line" and "Col" in a grid. Panels without a place are not shown. A
/// temporary message covers the folder while it is shown.
class MainStatus : public QObject {
  Q_OBJECT

 public:
  MainStatus(QStatusBar& bar, QMdiArea& area, const QString& folder);

  /// Shows the panels again, in the language in force.
  void Refresh();

 private:
  void WindowActivated(QMdiSubWindow* frame);
  void FocusChanged(QWidget* focused);

  QMdiArea& area_;
  QLabel* page_;
  QLabel* line_;
  QLabel* column_;
  QPointer<QAbstractItemView> grid_;  ///< the one with the keyboard
};

}  // namespace quorvane::ui
