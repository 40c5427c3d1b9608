#pragma once

#include <QString>

class QApplication;
class QPrinter;

namespace quorvane::app {
class IniFile;
}

namespace quorvane::controls {

/// Gives the program the theme and the language of the settings ([Display] Theme and Language).
/// Windows that are open turn to the theme at once; texts are in the language from the next window
/// on, and the main window's menu follows at once.
void ApplyAppearance(QApplication& application, const app::IniFile& settings);

/// Proposes the printer and the paper of the settings ([Printer] Name and PageSize). A printer that
/// is not there any more leaves the desktop's own.
void ProposePrinter(QPrinter& printer, const app::IniFile& settings);

}  // namespace quorvane::controls
