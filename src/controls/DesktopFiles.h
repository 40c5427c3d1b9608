#pragma once

#include <QString>

class QWidget;

namespace quorvane::controls {

/// Opens a file with the program that the desktop has for its kind; false when there is none.
bool OpenWithDesktop(const QString& path);

/// Asks for a file to save into, starting with a suggestion; empty when the user gives it up.
QString AskSavePath(QWidget* over, const QString& suggested_path);

/// Asks for a file to read, starting in a folder; empty when the user gives it up.
QString AskOpenPath(QWidget* over, const QString& folder, const QString& filters);

/// Asks for a folder, starting with one; empty when the user gives it up.
QString AskFolder(QWidget* over, const QString& start);

}  // namespace quorvane::controls
