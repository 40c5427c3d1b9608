#include "admin/backup/RestoreFiles.h"

#include "core/platform/DiskSync.h"
#include "core/platform/Processes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>
#include <QUuid>

#include <cstring>
#include <stdexcept>

namespace quorvane::backup {
namespace {

constexpr char kPromise[] = "promise";
constexpr int kNoSuchTable = 1146;

[[noreturn]] void Fail(const QString& what, const QString& path) {
  throw std::runtime_error(
      (what + QLatin1Char(' ') + QDir::toNativeSeparators(path)).toStdString());
}

QByteArray ReadAll(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    Fail(QStringLiteral("cannot read"), path);
  }
  return file.readAll();
}

void WriteWhole(const QString& path, const QByteArray& content, bool closed_to_others = false) {
  platform::MakeMissingFolder(QFileInfo(path).absolutePath());
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) {
    Fail(QStringLiteral("cannot write"), path);
  }
  if (closed_to_others) {
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  }
  if (file.write(content) != content.size() || !file.commit()) {
    Fail(QStringLiteral("cannot write"), path);
  }
}

/// Ended between the two steps, the file still lies where it came from.
void MoveInto(const QString& from, const QString& to) {
  platform::MakeMissingFolder(QFileInfo(to).absolutePath());
  QFile::remove(to);
  if (!QFile::rename(from, to)) {
    Fail(QStringLiteral("cannot move a file to"), to);
  }
}

bool IsDocument(const BackupFile& file) {
  return file.path.startsWith(QLatin1String(kDocumentsFolder));
}

bool IsRow(const BackupFile& file) {
  return file.path.startsWith(QLatin1String("tables/"));
}

bool IsOfThisMachine(const QByteArray& section) {
  return section == "database" || section == "backup";
}

/// The lines of the sections of this machine, or those of all others, which the lines before the
/// first section belong to.
QByteArray Sections(const QByteArray& settings, bool of_this_machine) {
  constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
  QByteArray taken;
  QByteArray section;
  const qsizetype start = settings.startsWith(kByteOrderMark) ? sizeof(kByteOrderMark) - 1 : 0;
  for (const QByteArray& line : settings.sliced(start).split('\n')) {
    const QByteArray text = line.trimmed();
    if (text.startsWith('[')) {
      const qsizetype end = text.indexOf(']');
      section = text.sliced(1, (end < 0 ? text.size() : end) - 1).trimmed().toLower();
    }
    if (IsOfThisMachine(section) == of_this_machine && !(text.isEmpty() && taken.isEmpty())) {
      taken += line + '\n';
    }
  }
  while (taken.endsWith("\n\n")) {
    taken.chop(1);
  }
  return taken;
}

}  // namespace

QByteArray MergedSettings(const QByteArray& restored, const QByteArray& present) {
  const QByteArray kept = Sections(present, true);
  return Sections(restored, false) + (kept.isEmpty() ? QByteArray() : '\n' + kept);
}

RestoreFiles::RestoreFiles(database::Connection& connection, const app::Folders& folders)
    : connection_(connection),
      folders_(folders),
      stage_(QDir(folders.application).filePath(QStringLiteral("Restore"))) {}

bool RestoreFiles::TryLock() {
  lock_.emplace(QDir(folders_.application).filePath(QStringLiteral(".restore.lock")));
  return lock_->TryExclusive();
}

QString RestoreFiles::File(const char* name) const {
  return QDir(stage_).filePath(QLatin1String(name));
}

bool RestoreFiles::IsPending() const {
  return QFileInfo::exists(stage_);
}

void RestoreFiles::Stage(const QString& backup, const Manifest& manifest, Progress& progress) {
  platform::MakeMissingFolder(stage_);
  progress.Begin(QCoreApplication::translate("Backup", "Fetching the documents"), manifest.Bytes());
  ByteCount count{progress};
  for (const BackupFile& file : manifest.files) {
    if (IsRow(file)) {
      continue;
    }
    const BackupFile copy = CopyHashed(QDir(backup).filePath(file.path), stage_, file.path, count);
    if (copy.sha256 != file.sha256) {
      Fail(QStringLiteral("the backup changes while it is read:"), file.path);
    }
  }
  if (manifest.Find(QLatin1String(kSettingsFile)) != nullptr) {
    const QByteArray present =
        QFileInfo::exists(folders_.config_file) ? ReadAll(folders_.config_file) : QByteArray();
    WriteWhole(File(kSettingsFile), MergedSettings(ReadAll(File(kSettingsFile)), present));
  }
  WriteManifest(stage_, manifest);
}

void RestoreFiles::Promise() {
  connection_.Execute("Create Table if not Exists RestoreMark(Id varchar(64) Primary Key)");
  number_ = QUuid::createUuid().toString(QUuid::WithoutBraces);
  platform::SyncToDisk(stage_);
  WriteWhole(File(kPromise), number_.toUtf8());
}

void RestoreFiles::Mark(database::Transaction& transaction) {
  transaction.Execute("Insert Into RestoreMark(Id) Values(?)", number_);
}

/// Waits for a transaction that the server is still ending after its program was killed.
bool RestoreFiles::IsMarked() {
  if (!QFileInfo::exists(File(kPromise))) {
    return false;
  }
  try {
    return connection_
        .Open("Select 1 From RestoreMark Where Id=? Lock In Share Mode",
              QString::fromUtf8(ReadAll(File(kPromise))))
        .Next();
  } catch (const database::DatabaseError& error) {
    if (error.Native() != kNoSuchTable) {
      throw;
    }
    return false;
  }
}

void RestoreFiles::Settle() {
  if (IsMarked()) {
    TakeTheirPlaces();
  }
  // The note goes first: what is left without it is only swept up.
  QFile::remove(File(kPromise));
  connection_.Execute("Drop Table If Exists RestoreMark");
  if (!QDir(stage_).removeRecursively()) {
    Fail(QStringLiteral("cannot remove"), stage_);
  }
}

void RestoreFiles::TakeTheirPlaces() {
  Manifest staged;
  if (const MaybeRefusal refusal = ReadManifest(stage_, staged)) {
    throw std::runtime_error(refusal->text.toStdString());
  }
  PlaceDocuments(staged);
  PlaceData(staged);
  if (QFileInfo::exists(File(kSettingsFile))) {
    WriteWhole(folders_.config_file, ReadAll(File(kSettingsFile)), true);
  }
}

/// Ended on the way, it goes on where it was: what has been moved is no longer here.
void RestoreFiles::PlaceDocuments(const Manifest& staged) {
  QSet<QString> wanted;
  for (const BackupFile& file : staged.files) {
    wanted.insert(file.path);
  }
  for (const FileBelow& file : FilesBelow(folders_.documents, kDocumentsFolder)) {
    if (!wanted.contains(file.path)) {
      QFile::remove(file.source);
    }
  }
  const QString root = folders_.documents;
  for (const BackupFile& file : staged.files) {
    const QString source = QDir(stage_).filePath(file.path);
    if (IsDocument(file) && QFileInfo::exists(source)) {
      MoveInto(source, QDir(root).filePath(file.path.sliced(
                           static_cast<qsizetype>(std::strlen(kDocumentsFolder)))));
    }
  }
}

void RestoreFiles::PlaceData(const Manifest& staged) {
  for (const BackupFile& file : staged.files) {
    if (file.path.startsWith(QLatin1String(kDataFolder))) {
      WriteWhole(QDir(folders_.data)
                     .filePath(file.path.sliced(static_cast<qsizetype>(std::strlen(kDataFolder)))),
                 ReadAll(QDir(stage_).filePath(file.path)));
    }
  }
}

void SettleInterruptedRestore(database::Connection& connection, const app::Folders& folders) {
  RestoreFiles files(connection, folders);
  if (files.IsPending() && files.TryLock()) {
    files.Settle();
  }
}

}  // namespace quorvane::backup
