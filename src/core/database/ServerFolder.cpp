#include "core/database/ServerFolder.h"

#include "core/platform/PrivateFile.h"
#include "core/platform/Processes.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <limits>
#include <optional>
#include <stdexcept>
#include <system_error>

namespace quorvane::database {
namespace {

// The system's limit for a socket's path is 108 bytes.
constexpr qsizetype kLongestSocketPath = 100;
constexpr char kSocketName[] = "/mariadb.sock";

/// A list of folders is separated by colons, so none of its folders can have one in its name.
constexpr QLatin1Char kListSeparator(':');

constexpr std::int64_t kSpareRoom = 64 << 20;

/// Nothing when the system does not tell.
std::optional<std::int64_t> RoomOn(const QString& folder) {
  std::error_code error;
  const auto space = std::filesystem::space(QFileInfo(folder).filesystemFilePath(), error);
  return error ? std::nullopt : std::optional(static_cast<std::int64_t>(space.available));
}

bool FitsASocket(const QString& folder) {
  return QFile::encodeName(folder + QLatin1String(kSocketName)).size() <= kLongestSocketPath &&
         !folder.contains(kListSeparator);
}

/// The folder that the file names, when it is still this user's.
QString NotedFolder(const QString& note) {
  QFile file(note);
  if (!file.open(QIODevice::ReadOnly)) {
    return {};
  }
  QString folder = QFile::decodeName(file.readAll().trimmed());
  if (!QDir::isAbsolutePath(folder) || !FitsASocket(folder)) {
    return {};
  }
  try {
    platform::MakePrivateFolder(folder);
  } catch (const std::runtime_error&) {
    // Somebody else has taken the name in a folder that everybody may write to.
    return {};
  }
  return folder;
}

}  // namespace

ServerFolder::ServerFolder(const QString& path) {
  const QString absolute = QDir(path).absolutePath();
  platform::MakePrivateFolder(absolute);
  path_ = QFileInfo(absolute).canonicalFilePath();
}

QString ServerFolder::File(const char* name) const {
  return path_ + QLatin1Char('/') + QLatin1String(name);
}

QString ServerFolder::Socket() const {
  QString folder = File("run");
  if (FitsASocket(folder)) {
    platform::MakePrivateFolder(folder);
    return folder + QLatin1String(kSocketName);
  }
  const QString note = File("socket-folder");
  folder = NotedFolder(note);
  if (folder.isEmpty()) {
    folder = platform::NewShortFolder();
    platform::WritePrivate(note, QFile::encodeName(folder) + '\n');
  }
  return folder + QLatin1String(kSocketName);
}

QString ServerFolder::Scratch(const QString& socket) const {
  QString inside = File("tmp");
  if (inside.contains(kListSeparator)) {
    return QFileInfo(socket).path();
  }
  platform::MakePrivateFolder(inside);
  return inside;
}

QString ServerFolder::ShortName() const {
  const QByteArray hash = QCryptographicHash::hash(path_.toUtf8(), QCryptographicHash::Sha256);
  return QStringLiteral("/quorvane-") + QString::fromLatin1(hash.toHex().left(16));
}

QString ServerFolder::SpareFolder() const {
  for (const QString& disk : platform::ScratchDisks()) {
    QString folder = disk + ShortName();
    if (RoomOn(disk).value_or(0) < kSpareRoom) {
      continue;
    }
    try {
      platform::MakePrivateFolder(folder);
      return folder;
    } catch (const std::runtime_error&) {
      // Somebody else has taken the name there.
      continue;
    }
  }
  return {};
}

void ServerFolder::RemoveSpareFolders() const {
  for (const QString& disk : platform::ScratchDisks()) {
    QDir(disk + ShortName()).removeRecursively();
  }
}

std::int64_t ServerFolder::Room() const {
  return RoomOn(path_).value_or(std::numeric_limits<std::int64_t>::max());
}

std::int64_t ServerFolder::Process() const {
  // It starts in the folder and moves to its data.
  return platform::FindProcess(QStringLiteral("mariadbd"), {path_, File("data")});
}

QString ErrorsIn(const QByteArray& log) {
  QStringList errors;
  for (const QByteArray& line : log.split('\n')) {
    const qsizetype at = line.indexOf("ERROR");
    if (at >= 0 && errors.size() < 3) {
      errors << QString::fromUtf8(line.sliced(at)).remove(QStringLiteral("ERROR] ")).left(200);
    }
  }
  return errors.join(QStringLiteral("; "));
}

}  // namespace quorvane::database
