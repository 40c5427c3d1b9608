#pragma once

#include "controls/Desk.h"

#include <QString>
#include <QStringList>

namespace quorvane::controls {
class ChildWindow;
}

namespace quorvane::ui {

/// The names of all windows and of the targets that one serves, as the menu writes them where it
/// does, in alphabetical order.
QStringList WindowNames();

/// Makes the window of a name or of a target, compared without regard to capitals; nullptr when
/// there is none. It is not shown yet and belongs to itself.
controls::ChildWindow* MakeWindow(const QString& name, controls::Desk& desk);

}  // namespace quorvane::ui
