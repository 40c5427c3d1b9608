#pragma once

#include <QIcon>

namespace quorvane::controls {

/// The program's icon as it is installed for the desktop, painted: no plug-in for SVG is needed.
QIcon AppIcon();

}  // namespace quorvane::controls
