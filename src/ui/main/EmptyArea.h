#pragma once

#include "controls/Desk.h"
#include "ui/main/OpenWindows.h"

#include <QObject>

namespace quorvane::home {
class HomePane;
}

namespace quorvane::ui {

class StartPage;

/// What the area of the main window shows while no window is open: how to begin while there is no
/// client, and the figures of the portfolio from the first client on.
class EmptyArea : public QObject {
  Q_OBJECT

 public:
  EmptyArea(controls::Desk& desk, OpenWindows& area);

  /// Shows the page that is due, or none while a window is open. Asks the database until there is a
  /// client. Throws DatabaseError.
  void Refresh();

  /// Writes the pages' texts in the language in force.
  void ShowTexts();

 Q_SIGNALS:
  /// The menu item under that name is to be done.
  void Chosen(const QString& menu_item);

 private:
  void Hide();

  controls::Desk& desk_;
  OpenWindows& area_;
  StartPage* start_;
  home::HomePane* home_;
  bool has_clients_ = false;  ///< once there was one, the start page is not needed
};

}  // namespace quorvane::ui
