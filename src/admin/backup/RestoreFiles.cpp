#include "admin/backup/RestoreFiles.h"

#include "admin/settings/Settings.h"
#include "core/platform/PrivateFile.h"
#include "core/platform/Processes.h"
#include "core/text/Tr.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QUuid>

#include <cstring>
#include <stdexcept>

namespace quorvane::backup {
namespace {

constexpr char kCommitFile[] = "promise";
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

void WriteWhole(const QString& path, const QByteArray& content) {
  platform::MakeMissingFolder(QFileInfo(path).absolutePath());
  platform::WritePrivate(path, content);
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

/// Where a file of a backup belongs; empty for the rows of a table.
QString PlaceOf(const app::Folders& folders, const QString& path) {
  const auto below = [&](const QString& folder, const char* prefix) {
    return QDir(folder).filePath(path.sliced(static_cast<qsizetype>(std::strlen(prefix))));
  };
  if (path.startsWith(QLatin1String(kDocumentsFolder))) {
    return below(folders.documents, kDocumentsFolder);
  }
  if (path.startsWith(QLatin1String(kDataFolder))) {
    return below(folders.data, kDataFolder);
  }
  return path == QLatin1String(kSettingsFile) ? folders.config_file : QString();
}

}  // namespace

std::vector<app::IniSetting> RestoredSettings(const app::IniFile& backup) {
  std::vector<app::IniSetting> restored;
  for (int number = 0; number < settings::kTexts; ++number) {
    const auto text = static_cast<settings::Text>(number);
    if (settings::IsOfDatabase(text) || settings::IsOfScreen(text)) {
      continue;
    }
    const settings::TextPlace& place = settings::PlaceOf(text);
    const QString section = QLatin1String(place.section);
    const QString key = QLatin1String(place.key);
    restored.push_back({section, key, backup.Find(section, key)});
  }
  return restored;
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
  progress.Begin(Tr("Backup", "Fetching the documents"), manifest.Bytes());
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
    StageSettings();
  }
  WriteManifest(stage_, manifest);
}

/// The present file with the backup's values in it.
void RestoreFiles::StageSettings() {
  const app::IniFile staged(File(kSettingsFile));
  const std::vector<app::IniSetting> restored = RestoredSettings(staged);
  const QByteArray present =
      QFileInfo::exists(folders_.config_file) ? ReadAll(folders_.config_file) : QByteArray();
  WriteWhole(staged.Path(), present);
  staged.Write(restored);
}

MaybeRefusal RestoreFiles::CheckLinks(const Manifest& manifest) const {
  const QDir root(folders_.application);
  QSet<QString> places{stage_, folders_.documents, folders_.data};
  for (const BackupFile& file : manifest.files) {
    for (QString place = PlaceOf(folders_, file.path);
         place.size() > root.path().size() && !places.contains(place);
         place = QFileInfo(place).path()) {
      places.insert(place);
    }
  }
  for (const QString& place : places) {
    if (QFileInfo(place).isSymLink()) {
      return Refusal{Tr("Backup",
                        "%1 is a link. A restore writes through no link: put what it "
                        "leads to in its place first.")
                         .arg(QDir::toNativeSeparators(place)),
                     {}};
    }
  }
  return std::nullopt;
}

void RestoreFiles::Promise() {
  connection_.Execute("Create Table if not Exists RestoreMark(Id varchar(64) Primary Key)");
  number_ = QUuid::createUuid().toString(QUuid::WithoutBraces);
  platform::SyncToDisk(stage_);
  WriteWhole(File(kCommitFile), number_.toUtf8());
}

void RestoreFiles::Mark(database::Transaction& transaction) {
  transaction.Execute("Insert Into RestoreMark(Id) Values(?)", number_);
}

/// Waits for a transaction that the server is still ending after its program was killed.
bool RestoreFiles::IsMarked() {
  if (!QFileInfo::exists(File(kCommitFile))) {
    return false;
  }
  try {
    return connection_
        .Open("Select 1 From RestoreMark Where Id=? Lock In Share Mode",
              QString::fromUtf8(ReadAll(File(kCommitFile))))
        .Next();
  } catch (const database::DatabaseError& error) {
    if (error.Native() != kNoSuchTable) {
      throw;
    }
    return false;
  }
}

bool RestoreFiles::Settle() {
  const bool happened = IsMarked();
  if (happened) {
    PutInPlace();
    // Its own mark only: another folder may be restoring into the same database.
    connection_.Execute("Delete From RestoreMark Where Id=?",
                        QString::fromUtf8(ReadAll(File(kCommitFile))));
  }
  // The note goes first: what is left without it is only swept up.
  QFile::remove(File(kCommitFile));
  if (!QDir(stage_).removeRecursively()) {
    Fail(QStringLiteral("cannot remove"), stage_);
  }
  return happened;
}

void RestoreFiles::PutInPlace() {
  const Result<Manifest> staged = ReadManifest(stage_);
  if (!staged) {
    throw std::runtime_error(staged.Why().text.toStdString());
  }
  PlaceDocuments(*staged);
  PlaceData(*staged);
  if (QFileInfo::exists(File(kSettingsFile))) {
    WriteWhole(folders_.config_file, ReadAll(File(kSettingsFile)));
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
  for (const BackupFile& file : staged.files) {
    const QString source = QDir(stage_).filePath(file.path);
    if (IsDocument(file) && QFileInfo::exists(source)) {
      MoveInto(source, PlaceOf(folders_, file.path));
    }
  }
}

void RestoreFiles::PlaceData(const Manifest& staged) {
  for (const BackupFile& file : staged.files) {
    if (file.path.startsWith(QLatin1String(kDataFolder))) {
      WriteWhole(PlaceOf(folders_, file.path), ReadAll(QDir(stage_).filePath(file.path)));
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
