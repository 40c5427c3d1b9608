#pragma once

#include "admin/backup/Backup.h"

#include <QString>

#include <vector>

namespace quorvane::backup {

/// Puts a backup in the place of what the program holds now: all of it or nothing, also when the
/// program or the server is ended meanwhile.
///
/// Verifies the backup first and makes a backup of what is about to be replaced, whose path is the
/// result. The records of every table are replaced in one transaction, read back and compared with
/// the backup before it is committed; documents, Data and settings follow (see RestoreFiles). The
/// database is then opened anew and its rows are counted. The copy of what was replaced stays until
/// the next restore has come that far.
///
/// Refused, with nothing changed, when the folder is no whole backup, was made by a newer release,
/// or another program restores at the time. Throws DatabaseError, std::runtime_error or
/// Cancellation, with nothing changed either unless what() says so.
Result<QString> RestoreBackup(const Source& source, const QString& backup, const QDateTime& now,
                              Progress& progress);

/// Where the copies of replaced data are.
QString ReplacedFolder(const app::Folders& folders);

/// What a backup holds, for the user who chooses one: "Clients", 12 and so on.
struct Holding {
  QString what;
  std::int64_t count = 0;
};
std::vector<Holding> HoldingsOf(const Manifest& manifest);

}  // namespace quorvane::backup
