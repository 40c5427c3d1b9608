#pragma once

#include "controls/Desk.h"

#include <QString>
#include <QStringList>

namespace quorvane::controls {
class ChildWindow;
}

namespace quorvane::ui {

/// Whether the program has a window of that name, or a window that serves that target name; names
/// are compared without regard to capitals.
bool HasWindow(const QString& name);

/// Every name that HasWindow knows, as the menu writes it where it does, in alphabetical order.
QStringList WindowNames();

/// Makes the window of a name or of a target; nullptr when there is none. It is not shown yet and
/// belongs to itself.
controls::ChildWindow* MakeWindow(const QString& name, controls::Desk& desk);

}  // namespace quorvane::ui
