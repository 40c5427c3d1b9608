#include "admin/backup/BackupList.h"

#include "core/app/Ini.h"
#include "core/text/Tr.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace quorvane::backup {
namespace {

const QString kSection = QStringLiteral("Backup");
const QString kFolder = QStringLiteral("Folder");
const QString kAutomatic = QStringLiteral("Automatic");
const QString kKeep = QStringLiteral("Keep");

/// Half removed it is an unfinished one, never a damaged one.
void Remove(const Entry& entry) {
  QDir folder = QFileInfo(entry.path).dir();
  const QString going = entry.name + QStringLiteral(".part");
  if (folder.rename(entry.name, going)) {
    QDir(folder.filePath(going)).removeRecursively();
  }
}

}  // namespace

Settings ReadSettings(const app::Folders& folders) {
  const app::IniFile config(folders.config_file);
  Settings settings;
  settings.folder = config.Read(kSection, kFolder);
  if (settings.folder.isEmpty()) {
    settings.folder = QDir(folders.application).filePath(QStringLiteral("BackUp"));
  }
  settings.automatic = config.Read(kSection, kAutomatic).toInt() == 1;
  bool is_number = false;
  const int keep = config.Read(kSection, kKeep).toInt(&is_number);
  settings.keep = is_number ? std::clamp(keep, 1, Settings::kMostKept) : settings.keep;
  return settings;
}

MaybeRefusal WriteSettings(const app::Folders& folders, const Settings& settings) {
  const app::IniFile config(folders.config_file);
  constexpr qsizetype kLongest = 250;
  if (settings.folder.size() > kLongest) {
    return Refusal{Tr("Backup", "The folder's name is too long."), Field::kFolder};
  }
  config.Write(kSection, kFolder, settings.folder);
  config.Write(kSection, kAutomatic, QString::number(settings.automatic ? 1 : 0));
  config.Write(kSection, kKeep, QString::number(settings.keep));
  return std::nullopt;
}

Entry Look(const QString& backup) {
  const QFileInfo info(backup);
  Entry entry{.path = backup, .name = info.fileName(), .made = info.lastModified()};
  const Result<Manifest> manifest = ReadManifest(backup);
  if (!manifest) {
    entry.state = IsUnfinishedName(entry.name) ? BackupState::kUnfinished : BackupState::kDamaged;
    entry.fault = manifest.Why().text;
    return entry;
  }
  entry.made = manifest->made;
  entry.kind = manifest->kind;
  entry.bytes = manifest->Bytes();
  if (const MaybeRefusal refusal = CheckSizes(backup, *manifest)) {
    entry.state = BackupState::kDamaged;
    entry.fault = refusal->text;
  } else if (IsUnfinishedName(entry.name)) {
    entry.state = BackupState::kUnfinished;
  }
  return entry;
}

std::vector<Entry> ListBackups(const QString& folder) {
  std::vector<Entry> entries;
  const QDir root(folder);
  if (folder.isEmpty() || !root.exists()) {
    return entries;
  }
  // The names sort by date.
  for (const QString& name :
       root.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::Reversed)) {
    if (IsBackupName(name)) {
      entries.push_back(Look(root.filePath(name)));
    }
  }
  return entries;
}

bool IsAutomaticDue(const Settings& settings, QDate today) {
  return settings.automatic &&
         std::ranges::none_of(ListBackups(settings.folder), [today](const Entry& entry) {
           return entry.kind == Kind::kAutomatic && entry.state == BackupState::kComplete &&
                  entry.made.date() == today;
         });
}

MaybeRefusal MakeAutomatic(const Source& source, const Settings& settings, const QDateTime& now,
                           Progress& progress) {
  if (MaybeRefusal refusal =
          MakeBackup(source, settings.folder, Kind::kAutomatic, now, progress).Refused()) {
    return refusal;
  }
  RemoveOldAutomatic(settings.folder, settings.keep);
  return std::nullopt;
}

int RemoveOldAutomatic(const QString& folder, int keep) {
  int kept = 0;
  int removed = 0;
  for (const Entry& entry : ListBackups(folder)) {
    if (entry.kind != Kind::kAutomatic || entry.state == BackupState::kUnfinished) {
      continue;
    }
    if (kept >= keep) {
      Remove(entry);
      ++removed;
    } else if (entry.state == BackupState::kComplete) {
      ++kept;
    }
  }
  return removed;
}

}  // namespace quorvane::backup
