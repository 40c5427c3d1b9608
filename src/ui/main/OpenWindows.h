#pragma once

#include "controls/ChildWindow.h"
#include "reporting/window/ReportDesk.h"

#include <QMdiArea>
#include <QString>

#include <map>

namespace quorvane::ui {

/// The area of the main window with the windows that are open in it, each free or behind a tab. A
/// window is open once; one that works on a client and year, once for each client and year.
class OpenWindows : public QMdiArea {
  Q_OBJECT

 public:
  explicit OpenWindows(reporting::ReportDesk& desk);

  /// Opens a window by its name, or brings it to the front when it is open. Throws when no window
  /// has that name.
  controls::ChildWindow* Show(const QString& name);

  /// The window that the user works in; nullptr when none is open.
  controls::ChildWindow* Front() const;

  /// The name by which a window was opened; empty for one that Show did not open.
  QString NameOf(const controls::ChildWindow* window) const;

  /// No window is open that Show opened.
  bool IsEmpty() const { return open_.empty(); }

  void ShowTabs(bool on);
  bool AreTabs() const { return viewMode() == QMdiArea::TabbedView; }

  /// Asks every open window before any of them goes: one that must stay keeps them all.
  bool MayClose();
  void CloseAll();

 Q_SIGNALS:
  /// A window is about to come into the area, for the first time.
  void Opening();

  /// A window that Show opened is gone.
  void Closed();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QString KeyOf(const QString& name) const;
  void BringToFront(controls::ChildWindow& window);

  reporting::ReportDesk& desk_;
  std::map<QString, controls::ChildWindow*> open_;  ///< by name, and client and year
};

}  // namespace quorvane::ui
