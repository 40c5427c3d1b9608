#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

class QApplication;
class QPalette;
class QPrinter;

namespace quorvane::app {
class IniFile;
}

namespace quorvane::controls {

enum class Theme { kSystem, kLight, kDark };

/// The one place of the program's look. kSystem follows the desktop's light or dark palette, also
/// when it changes later.
void ApplyTheme(QApplication& application, Theme theme);

/// True when the palette in force is a dark one.
bool IsDark();

/// `share` of 1 gives `ink`, 0 gives `ground`.
QColor Mix(const QColor& ink, const QColor& ground, double share);

/// The line around boxes, buttons and grids.
QColor EdgeColor(const QPalette& palette);

/// Lengths in device-independent pixels; Qt scales them with the screen.
inline constexpr int kMargin = 10;
inline constexpr int kSpacing = 8;
inline constexpr int kTightSpacing = 4;
inline constexpr int kBoxHeight = 28;
inline constexpr int kRadius = 5;

/// The program's icon as it is installed for the desktop, painted: no plug-in for SVG is needed.
QIcon AppIcon();

/// Gives the program the theme and the language of the settings ([Display] Theme and Language).
/// Windows that are open turn to the theme at once; texts are in the language from the next window
/// on, and the main window's menu follows at once.
void ApplyAppearance(QApplication& application, const app::IniFile& settings);

/// Proposes the printer and the paper of the settings ([Printer] Name and PageSize). A printer that
/// is not there any more leaves the desktop's own.
void ProposePrinter(QPrinter& printer, const app::IniFile& settings);

}  // namespace quorvane::controls
