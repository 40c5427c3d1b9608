#pragma once

#include "controls/Messages.h"
#include "core/changes/Log.h"
#include "reporting/window/ReportDesk.h"
#include "ui/Features.h"
#include "ui/main/MainHead.h"
#include "ui/main/OutsideTools.h"

#include <QElapsedTimer>
#include <QMainWindow>
#include <QMdiArea>
#include <QTimer>

#include <map>

namespace quorvane::controls {
class ChildWindow;
}

namespace quorvane::home {
class HomePane;
}

namespace quorvane::ui {

class ClientBar;
class MainHead;
class MainStatus;
class StartPage;

/// The main window: menu, button row, clock, index headline, status bar, and the area in which
/// every other window opens, each free or behind a tab. While there is no client and no window is
/// open, the start page tells how to begin.
class MDIForm1 : public QMainWindow {
  Q_OBJECT

 public:
  explicit MDIForm1(reporting::ReportDesk& desk);
  ~MDIForm1() override;

  /// Opens a window by its name inside this one, or brings it to the front when it is open.
  void Open(const QString& name);

  /// Opens the window of a record and chooses the record there.
  void OpenRecord(const controls::RecordPlace& place);

  /// Stores the target's name and opens the client list for it; the button row is disabled
  /// while the list is in front.
  void SelectClientFor(const QString& target);

 Q_SIGNALS:
  /// The user has logged out; every window has agreed to close and the main window is closing.
  void LoggedOut();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildMenuBar();
  void BuildCentre();
  void StartTimers();
  void PlaceOnScreen();
  void RememberPlace() const;
  void Do(const Feature& item);
  controls::ChildWindow* Show(const QString& name);
  QString KeyOf(const QString& name) const;
  void OpenModal(const QString& name);
  void ChildClosed();
  void RestButtonRow();
  controls::ChildWindow* Front() const;
  bool ChildrenMayClose();
  void CloseChildren();
  void CloseAll();
  void OpenForChosen();
  void ShowTabs(bool on);
  void ShowStartPage();
  void EnableButtons(bool enabled);
  void LookAround();
  bool IsEditing() const;
  bool ShowTool(const QString& name);
  void StartTool(const QString& name);

  void Timer1_Timer();
  void cmdSensex();
  void lblSensex_Click();
  void lblLoaded_Click();
  void LblChkUpdate_Click();
  void mnuBackUp_Click();
  void mnuMisc_Click();
  void mnuConverter_Click();
  void mnuUndo_Click();
  void mnuLogOut_Click();
  void mnuContact_Click();
  void mnuQuit_Click();

  reporting::ReportDesk& desk_;
  controls::Guard guard_;
  QMdiArea* area_;
  MainHead* head_ = nullptr;
  ClientBar* bar_ = nullptr;
  MainStatus* status_ = nullptr;
  StartPage* start_ = nullptr;
  home::HomePane* home_ = nullptr;
  QTimer Timer1;  ///< the clock
  QTimer Timer2;  ///< asks for the headline again
  HeadlineFeed feed_;
  OutsideTools tools_;
  std::map<QString, controls::ChildWindow*> open_;  ///< by name
  changes::News news_;                              ///< what programs changed
  bool looks_around_ = false;
  QElapsedTimer since_failed_;  ///< to ask for news
  bool closing_confirmed_ = false;
  bool has_clients_ = false;  ///< once there was one, the start page is not needed
  QRect opened_at_;           ///< before the user moved it
};

}  // namespace quorvane::ui
