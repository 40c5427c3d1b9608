#pragma once

#include <QString>
#include <QStringList>

namespace quorvane::ui {

/// The chapter of the user guide about a window, in whatever capitals its name is given; the index
/// ("README.md") for a window that has none.
QString ChapterOf(const QString& window_name);

/// Every chapter that a window leads to.
QStringList HelpChapters();

}  // namespace quorvane::ui
