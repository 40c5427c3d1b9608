#pragma once

#include "controls/Messages.h"
#include "core/app/Session.h"
#include "core/text/Dates.h"

#include <functional>

namespace quorvane::controls {

/// What every window is given: what the program shares, the way to speak to the user, the calendar
/// and the way to other windows. It outlives the windows.
struct Desk {
  app::Session& session;
  Messages& messages;
  std::function<text::Date()> today = text::Today;

  /// Opens a window by its name ("FrmDepPart") as a child of the main window.
  std::function<void(const QString& name)> open = [](const QString&) {};
};

}  // namespace quorvane::controls
