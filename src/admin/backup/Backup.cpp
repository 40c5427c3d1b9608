#include "admin/backup/Backup.h"

#include "admin/backup/TableRows.h"
#include "core/app/AppInfo.h"
#include "core/database/Transaction.h"
#include "core/platform/FileLock.h"
#include "core/platform/PrivateFile.h"
#include "core/text/Tr.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <fmt/format.h>

#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace quorvane::backup {
namespace {

const QString kPart = QStringLiteral(".part");
const QString kWritingLock = QStringLiteral("writing.lock");

/// The folder of a backup that is being written. What is not finished goes with the object; its
/// lock tells others that somebody is still writing.
class PartFolder {
 public:
  PartFolder(const QString& into, QDateTime& now) {
    const QDir folder(into);
    do {
      name_ = QStringLiteral("Quorvane-") + now.toString(QStringLiteral("yyyy-MM-dd-HHmmss"));
      now = now.addSecs(1);
    } while (folder.exists(name_) || folder.exists(name_ + kPart));
    now = now.addSecs(-1);
    path_ = folder.filePath(name_ + kPart);
    if (!QDir().mkpath(path_)) {
      throw std::runtime_error("cannot make the folder " + path_.toStdString());
    }
    // Passwords are in it. A disk without permissions does not know better.
    QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    lock_.emplace(QDir(path_).filePath(kWritingLock)).TryExclusive();
  }
  ~PartFolder() {
    if (!finished_) {
      QDir(path_).removeRecursively();
    }
  }
  PartFolder(const PartFolder&) = delete;

  const QString& Path() const { return path_; }

  /// Gives the folder its name.
  QString Finish() {
    QDir folder(path_);
    folder.remove(kWritingLock);
    platform::SyncToDisk(path_);
    folder.cdUp();
    if (!folder.rename(name_ + kPart, name_)) {
      throw std::runtime_error("cannot rename " + path_.toStdString());
    }
    finished_ = true;
    platform::SyncToDisk(folder.path());
    return folder.filePath(name_);
  }

 private:
  QString name_;
  QString path_;
  std::optional<platform::FileLock> lock_;
  bool finished_ = false;
};

/// Nobody writes any more into what a killed program has left.
void RemoveUnfinished(const QString& into) {
  const QDir folder(into);
  for (const QString& name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    if (!IsUnfinishedName(name)) {
      continue;
    }
    QDir part(folder.filePath(name));
    platform::FileLock lock(part.filePath(kWritingLock));
    if (lock.TryExclusive()) {
      part.removeRecursively();
    }
  }
}

/// A path that may not exist yet, with the links on its way resolved.
QString Resolved(const QString& path) {
  QFileInfo info(QDir::cleanPath(QDir(path).absolutePath()));
  QString rest;
  while (!info.exists() && !info.isRoot()) {
    rest = QLatin1Char('/') + info.fileName() + rest;
    info = QFileInfo(info.path());
  }
  return info.canonicalFilePath() + rest;
}

bool LiesIn(const QString& path, const QString& folder) {
  const QString outer = Resolved(folder);
  const QString inner = Resolved(path);
  return inner == outer || inner.startsWith(outer + QLatin1Char('/'));
}

MaybeRefusal CheckPlace(const app::Folders& folders, const QString& into) {
  if (into.trimmed().isEmpty()) {
    return Refusal{Tr("Backup", "Choose a Folder for the BackUp."), Field::kFolder};
  }
  for (const QString& own : {folders.documents, folders.data, folders.database}) {
    if (LiesIn(into, own)) {
      return Refusal{
          Tr("Backup", "A backup cannot lie inside %1, which is backed up or in use itself.")
              .arg(QDir::toNativeSeparators(own)),
          Field::kFolder};
    }
  }
  return std::nullopt;
}

/// One backup being made.
class Maker {
 public:
  Maker(const Source& source, QString root, Progress& progress)
      : source_(source), root_(std::move(root)), progress_(progress) {}

  void WriteTables(Manifest& manifest) {
    // Never committed: it only holds every query to one instant.
    database::Transaction instant(source_.connection);
    instant.Execute("Start Transaction With Consistent Snapshot");
    manifest.tables = TablesOf(source_.connection);
    std::int64_t all_rows = 0;
    for (const TableEntry& table : manifest.tables) {
      all_rows += Count(instant, table);
    }
    progress_.Begin(Tr("Backup", "Backing up the records"), all_rows);
    std::int64_t done = 0;
    for (TableEntry& table : manifest.tables) {
      HashedFile file(root_, table.Path());
      table.rows = SendRows(
          source_.connection, table,
          [&](std::string_view text) {
            file.Write(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
          },
          [&](std::int64_t rows) {
            progress_.Step(done += rows);
            progress_.ThrowIfCancelled();
          });
      manifest.files.push_back(file.Finish());
    }
  }

  void CopyFiles(Manifest& manifest) {
    std::vector<FileBelow> files = FilesBelow(source_.folders.documents, kDocumentsFolder);
    for (FileBelow& file : FilesBelow(source_.folders.data, kDataFolder)) {
      files.push_back(std::move(file));
    }
    if (QFileInfo::exists(source_.folders.config_file)) {
      files.push_back({source_.folders.config_file, QLatin1String(kSettingsFile)});
    }
    std::int64_t bytes = 0;
    for (const FileBelow& file : files) {
      bytes += QFileInfo(file.source).size();
    }
    progress_.Begin(Tr("Backup", "Backing up the documents"), bytes);
    ByteCount count{progress_};
    for (const FileBelow& file : files) {
      manifest.files.push_back(CopyHashed(file.source, root_, file.path, count));
    }
  }

 private:
  static std::int64_t Count(database::Transaction& instant, const TableEntry& table) {
    auto rows = instant.Open(fmt::format("Select Count(*) From {}", table.name));
    return rows.Next() ? rows.Int64(0) : 0;
  }

  const Source& source_;
  QString root_;
  Progress& progress_;
};

}  // namespace

bool IsBackupName(const QString& name) {
  static const QRegularExpression kName(
      QStringLiteral("^Quorvane-\\d{4}-\\d{2}-\\d{2}-\\d{6}(\\.part)?$"));
  return kName.match(name).hasMatch();
}

bool IsUnfinishedName(const QString& name) {
  return IsBackupName(name) && name.endsWith(kPart);
}

Result<QString> MakeBackup(const Source& source, const QString& into, Kind kind,
                           const QDateTime& now, Progress& progress) {
  if (const MaybeRefusal refusal = CheckPlace(source.folders, into)) {
    return *refusal;
  }
  QDateTime moment = now;
  RemoveUnfinished(into);
  PartFolder part(into, moment);
  Manifest manifest;
  manifest.program = QLatin1String(app::kVersionText);
  manifest.made = moment;
  manifest.kind = kind;
  Maker maker(source, part.Path(), progress);
  maker.WriteTables(manifest);
  maker.CopyFiles(manifest);
  WriteManifest(part.Path(), manifest);
  if (const MaybeRefusal damage = VerifyBackup(part.Path(), progress).Refused()) {
    throw std::runtime_error(damage->text.toStdString());
  }
  return part.Finish();
}

Result<Manifest> VerifyBackup(const QString& backup, Progress& progress) {
  Result<Manifest> manifest = ReadManifest(backup);
  if (!manifest) {
    return manifest;
  }
  if (const MaybeRefusal refusal = CheckSizes(backup, *manifest)) {
    return *refusal;
  }
  progress.Begin(Tr("Backup", "Checking the backup"), manifest->Bytes());
  ByteCount count{progress};
  for (const BackupFile& file : manifest->files) {
    if (HashOf(QDir(backup).filePath(file.path), count) != file.sha256) {
      return Damaged(backup,
                     Tr("Backup", "the file %1 does not agree with its checksum").arg(file.path));
    }
  }
  return manifest;
}

}  // namespace quorvane::backup
