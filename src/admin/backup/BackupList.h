#pragma once

#include "admin/backup/Backup.h"

#include <QDate>
#include <QDateTime>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvane::backup {

/// Section [Backup] of the settings: Folder, Automatic (0 or 1) and Keep.
struct Settings {
  QString folder;          ///< where backups are made; "BackUp" in the application folder at first
  bool automatic = false;  ///< one at the first start of each day
  int keep = 7;            ///< how many automatic ones stay

  static constexpr int kMostKept = 999;
};

Settings ReadSettings(const app::Folders& folders);

/// Refused when the folder's name is too long to be kept.
MaybeRefusal WriteSettings(const app::Folders& folders, const Settings& settings);

enum class BackupState {
  kVerified,  ///< every byte agrees with the manifest
  kComplete,  ///< every file is there in its size
  kDamaged,
  kUnfinished
};

/// A backup in a folder of backups.
struct Entry {
  QString path;
  QString name;
  QDateTime made;
  Kind kind = Kind::kByHand;
  std::int64_t bytes = 0;
  BackupState state = BackupState::kComplete;
  QString fault = {};  ///< what is wrong with a damaged or unfinished one
};

/// What can be told without reading the files; never kVerified.
Entry Look(const QString& backup);

/// The backups in a folder, the newest first; none when there is no such folder.
std::vector<Entry> ListBackups(const QString& folder);

/// True on the first start of a day, by the automatic backups in the folder.
bool IsAutomaticDue(const Settings& settings, QDate today);

/// Makes an automatic backup and removes the oldest automatic ones beyond the count. What was made
/// by hand is never removed.
MaybeRefusal MakeAutomatic(const Source& source, const Settings& settings, const QDateTime& now,
                           Progress& progress);

/// Removes whole automatic backups beyond the `keep` newest, and damaged ones that are older than
/// those. Returns how many.
int RemoveOldAutomatic(const QString& folder, int keep);

}  // namespace quorvane::backup
