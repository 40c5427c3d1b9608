#pragma once

#include "admin/backup/Manifest.h"
#include "core/app/Folders.h"
#include "core/app/Ini.h"
#include "core/database/Transaction.h"
#include "core/platform/FileLock.h"

#include <QString>

#include <optional>
#include <vector>

namespace quorvane::backup {

/// The files of a restore: documents, Data and settings. They change together with the database or
/// not at all, wherever the program is ended:
///
///   1. Stage copies them beside their places, into the folder "Restore" of the application folder.
///   2. Promise notes there that a transaction is about to replace the records.
///   3. Mark, inside that transaction, writes the note's number to the database.
///   4. Settle looks for the mark and moves the files to their places, or removes them without it.
///
/// Settle is called at the end of a restore and again when a program starts, for a restore that was
/// cut short.
class RestoreFiles {
 public:
  /// Keeps other programs from restoring into the same application folder or settling this restore.
  RestoreFiles(database::Connection& connection, const app::Folders& folders);

  /// False while another program restores.
  bool TryLock();

  /// Refused when a folder or file that the restore would write to is a link: it could lead
  /// anywhere.
  MaybeRefusal CheckLinks(const Manifest& manifest) const;

  void Stage(const QString& backup, const Manifest& manifest, Progress& progress);
  void Promise();
  void Mark(database::Transaction& transaction);

  /// Whether the restore happened. Asks the database, so that the result is right also when the
  /// answer to the commit was lost.
  bool Settle();

  /// Whether there is anything to settle. Cheap: asked at every start.
  bool IsPending() const;

 private:
  bool IsMarked();
  void PutInPlace();
  void PlaceDocuments(const Manifest& staged);
  void PlaceData(const Manifest& staged);
  void StageSettings();
  QString File(const char* name) const;

  database::Connection& connection_;
  const app::Folders& folders_;
  QString stage_;
  QString number_;
  std::optional<platform::FileLock> lock_;
};

/// What a backup's settings file changes in the present one: every setting of the program takes the
/// backup's value. Where the database and the backups are does not come back with the records, and
/// unknown settings are left out.
std::vector<app::IniSetting> RestoredSettings(const app::IniFile& backup);

/// To be called after every start: completes or drops a restore that was cut short.
void SettleInterruptedRestore(database::Connection& connection, const app::Folders& folders);

}  // namespace quorvane::backup
