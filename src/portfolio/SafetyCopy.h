#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"

#include <QDateTime>
#include <QString>

namespace quorvane::portfolio {

/// Writes the whole portfolio into a new folder "BackUp/<date and time>" under the application
/// folder, in the form that can be taken in again, and returns that folder. Throws as
/// ExportPortfolio does.
QString MakeSafetyCopy(database::Connection& connection, const QString& application_folder,
                       const QDateTime& now, Progress& progress);

}  // namespace quorvane::portfolio
