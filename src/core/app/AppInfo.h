#pragma once

#include <QString>

namespace quorvane::app {

/// The version of this program. It does not follow the calendar.
inline constexpr char kVersionText[] = "2.12.2";

/// Start of the main window's title: "Quorvane: ver 2.12.2 ", the blank included.
inline QString TitleText() {
  return QStringLiteral("Quorvane: ver %1 ").arg(QLatin1String(kVersionText));
}

}  // namespace quorvane::app
