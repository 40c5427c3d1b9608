#pragma once

#include "reporting/window/ReportDesk.h"

#include <QString>

#include <span>

namespace quorvane::controls {
class ChildWindow;
}

namespace quorvane::ui {

/// What choosing a menu item does.
enum class MenuAction {
  kNoItem,   ///< the feature is not in the menu
  kHeading,  ///< opens its sub-menu
  kSeparator,
  kOpenWindow,
  kOpenModal,        ///< the same, as a modal window
  kClientSelection,  ///< asks for a client and year first
  kBackUp,           ///< sets the target and opens its window
  kMiscellaneous,
  kConverter,
  kImportFolder,  ///< takes a portfolio folder in
  kExportFolder,
  kImportSample,  ///< takes the sample portfolio in
  kClientBar,     ///< goes to the client and year in the main window
  kTabs,          ///< shows the windows behind tabs, or free again
  kCloseAll,      ///< closes every window that is open
  kUndo,          ///< takes the user's last change back
  kLogOut,
  kContact,
  kQuit
};

/// A thing that the program does for its user: its menu item, its window and its chapter of the
/// user guide. A window of two duties is two features.
struct Feature {
  const char* item;     ///< object name of the menu item, such as "mnuClientInfo"
  const char* caption;  ///< of the menu item, with "&" before the access key
  MenuAction action;
  const char* heading;  ///< the item whose sub-menu it is in; empty for the menu bar

  const char* name = "";     ///< of the window or duty; other windows ask for it by this
  const char* chapter = "";  ///< the file of the user guide
  controls::ChildWindow* (*make)(reporting::ReportDesk&) =
      nullptr;  ///< not shown, belongs to itself

  const char* key = "";  ///< the key of the menu item ("Ctrl+F")
};

/// Everything that the program does, in the order of the menu.
std::span<const Feature> Features();

/// The feature of a window or duty, its name without regard to capitals; nullptr when there is
/// none.
const Feature* FindFeature(const QString& name);

}  // namespace quorvane::ui
