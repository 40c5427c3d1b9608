#pragma once

#include <QString>

#include <span>

namespace quorvane::ui {

/// What choosing a menu item does.
enum class MenuAction {
  kHeading,  ///< opens its sub-menu
  kSeparator,
  kOpenWindow,       ///< opens the window named by `target`
  kOpenModal,        ///< the same, as a modal window
  kClientSelection,  ///< stores `target` and opens the client list
  kBackUp,           ///< sets the target and opens its window
  kMiscellaneous,
  kConverter,
  kImportFolder,  ///< takes a portfolio folder in
  kExportFolder,
  kImportSample,  ///< takes the sample portfolio in
  kLogOut,
  kContact,
  kQuit
};

/// One item of the main menu, in its order. `heading` names the item whose sub-menu it stands in;
/// empty for the menu bar.
struct MenuItem {
  const char* name;     ///< object name, such as "mnuClientInfo"
  const char* caption;  ///< with "&" before the access key
  MenuAction action;
  const char* target;  ///< window or target name
  const char* heading;
};

std::span<const MenuItem> MenuItems();

}  // namespace quorvane::ui
