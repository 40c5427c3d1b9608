#include "core/app/Folders.h"

#include "core/platform/Processes.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <stdexcept>
#include <utility>

// Set by builds that are run from the project's folder; an installed program has no such folder.
#ifndef QUORVANE_DATA_FOLDER
#define QUORVANE_DATA_FOLDER ""
#endif

namespace quorvane::app {
namespace {

constexpr char kUserFolder[] = "/quorvane";

bool IsSeparator(QChar c) {
  return c == QChar('/') || c == QChar('\\');
}

QString WithoutEndSeparator(QString path) {
  while (path.size() > 1 && IsSeparator(path.back())) {
    path.chop(1);
  }
  return path.isEmpty() ? QStringLiteral(".") : path;
}

QString Join(const QString& folder, const char* name) {
  const QString file = QString::fromLatin1(name);
  return IsSeparator(folder.back()) ? folder + file : folder + QChar('/') + file;
}

QString ScreenIni() {
#ifdef Q_OS_WIN
  const QString folder = qEnvironmentVariable("SystemRoot", "C:/Windows") + "/System32";
#else
  const QString folder =
      QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + kUserFolder;
#endif
  return Join(folder, "OrvikConfig.INI");
}

bool CanWriteTo(const QString& folder) {
  QTemporaryFile probe(folder + QStringLiteral("/quorvane-XXXXXX"));
  return probe.open();
}

/// "bin" folders are shared with other programs and are no place for data, even for a user who
/// could write there.
bool IsShared(const QString& folder) {
  const QString name = QDir(folder).dirName();
  return name == QStringLiteral("bin") || name == QStringLiteral("sbin");
}

[[noreturn]] void Fail(const QString& path, const QString& reason) {
  throw std::runtime_error(
      QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path), reason).toStdString());
}

QByteArray ReadWhole(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    Fail(path, file.errorString());
  }
  QByteArray content = file.readAll();
  if (file.error() != QFileDevice::NoError) {
    Fail(path, file.errorString());
  }
  return content;
}

void CopyWhole(const QString& source, const QString& target) {
  const QByteArray content = ReadWhole(source);
  platform::MakeMissingFolder(QFileInfo(target).absolutePath());
  QSaveFile to(target);
  if (!to.open(QIODevice::WriteOnly) || to.write(content) != content.size() || !to.commit()) {
    Fail(target, to.errorString());
  }
}

}  // namespace

Folders Folders::At(QString application_path) {
  const QString folder = WithoutEndSeparator(std::move(application_path));
  return {.application = folder,
          .temporary = folder,
          .data = Join(folder, "Data"),
          .documents = Join(folder, "SignDocs"),
          .market_rate = Join(folder, "MRate"),
          .database = Join(folder, "database"),
          .config_file = Join(folder, "Confg.ini"),
          .screen_ini = ScreenIni()};
}

QString DefaultApplicationFolder(const QString& program_folder) {
  if (!IsShared(program_folder) && CanWriteTo(program_folder)) {
    return WithoutEndSeparator(program_folder);
  }
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + kUserFolder;
}

void InstallShippedFiles(const Folders& folders, const QString& shipped_data_folder) {
  const QDir shipped(shipped_data_folder);
  if (!shipped.exists()) {
    Fail(shipped_data_folder, QStringLiteral("the folder of the shipped files is missing"));
  }
  QDirIterator files(shipped.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString source = files.next();
    const QString name = shipped.relativeFilePath(source);
    const QString target = QDir(folders.data).filePath(name);
    const bool of_the_program = name.contains(u'/');
    if (!QFileInfo::exists(target) || (of_the_program && ReadWhole(source) != ReadWhole(target))) {
      CopyWhole(source, target);
    }
  }
}

QString ShippedFolder(const QString& program_folder, const QString& name) {
  for (const QString& parent :
       {program_folder + QStringLiteral("/../share/quorvane/"),
        QStringLiteral(QUORVANE_DATA_FOLDER "/"), QStringLiteral(QUORVANE_DATA_FOLDER "/../"),
        QStringLiteral(QUORVANE_BUILD_FOLDER "/")}) {
    if (QFileInfo(parent + name).isDir()) {
      return QDir(parent + name).canonicalPath();
    }
  }
  return {};
}

}  // namespace quorvane::app
