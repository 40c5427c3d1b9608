#pragma once

#include "admin/backup/Manifest.h"
#include "core/Progress.h"
#include "core/Result.h"
#include "core/app/Folders.h"
#include "core/database/Connection.h"

#include <QDateTime>
#include <QString>

namespace quorvane::backup {

/// What is backed up: the rows of every table, the scanned documents, the files in Data and the
/// settings.
struct Source {
  database::Connection& connection;
  const app::Folders& folders;
};

/// Writes a backup as a new folder "Quorvane-YYYY-MM-DD-HHMMSS" below `into` and reads it back; the
/// result is its path. The tables are those of one instant, also while other programs write.
/// Until it is complete its name ends in ".part"; such folders that a killed program has left are
/// removed by the next backup.
///
/// Refused when `into` is inside a folder that is backed up. Throws DatabaseError,
/// std::runtime_error with path and reason, or Cancellation; nothing is left then.
Result<QString> MakeBackup(const Source& source, const QString& into, Kind kind,
                           const QDateTime& now, Progress& progress);

/// Reads every file of a backup and compares it with the manifest.
Result<Manifest> VerifyBackup(const QString& backup, Progress& progress);

/// "Quorvane-2026-11-25-081500" and the same with ".part".
bool IsBackupName(const QString& name);
bool IsUnfinishedName(const QString& name);

}  // namespace quorvane::backup
