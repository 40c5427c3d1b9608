#pragma once

#include "controls/Desk.h"

#include <QString>

namespace quorvane::controls {

/// Opens a file with the program that the desktop has for its kind; false when there is none.
bool OpenWithDesktop(const QString& path);

/// Lets the desk ask for files and folders with the desktop's dialogs. Those for a file open where
/// the user chose one last, and so does the one for a folder that is asked for without a start.
void AskWithDialogs(Desk& desk);

}  // namespace quorvane::controls
