#pragma once

#include "controls/Messages.h"
#include "reporting/window/ReportDesk.h"
#include "ui/Features.h"
#include "ui/main/MainHead.h"
#include "ui/main/NewsRound.h"
#include "ui/main/OutsideTools.h"

#include <QMainWindow>
#include <QTimer>

namespace quorvane::ui {

class ClientBar;
class EmptyArea;
class MainHead;
class MainStatus;
class OpenWindows;

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
  void OpenModal(const QString& name);
  void ChildClosed();
  void RestButtonRow();
  void CloseAll();
  void OpenForChosen();
  void ShowTabs(bool on);
  void ShowStartPage();
  void EnableButtons(bool enabled);

  void Timer1_Timer();
  void cmdSensex();
  void lblSensex_Click();
  void lblLoaded_Click();
  void LblChkUpdate_Click();
  void mnuBackUp_Click();
  void mnuMisc_Click();
  void mnuConverter_Click();
  void mnuLogOut_Click();
  void mnuContact_Click();
  void mnuQuit_Click();

  reporting::ReportDesk& desk_;
  controls::Guard guard_;
  OpenWindows* area_;
  MainHead* head_ = nullptr;
  ClientBar* bar_ = nullptr;
  MainStatus* status_ = nullptr;
  EmptyArea* pages_ = nullptr;
  QTimer Timer1;  ///< the clock
  QTimer Timer2;  ///< asks for the headline again
  HeadlineFeed feed_;
  OutsideTools tools_;
  NewsRound round_;
  bool closing_confirmed_ = false;
  QRect opened_at_;  ///< before the user moved it
};

}  // namespace quorvane::ui
