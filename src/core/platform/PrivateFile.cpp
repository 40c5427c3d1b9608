#include "core/platform/PrivateFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace quorvane::platform {
namespace {

[[noreturn]] void Fail(const QSaveFile& file) {
  throw std::runtime_error("cannot write " + file.fileName().toStdString() + ": " +
                           file.errorString().toStdString());
}

}  // namespace

void OpenPrivate(QSaveFile& file) {
  if (!file.open(QIODevice::WriteOnly)) {
    Fail(file);
  }
  file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
}

void Commit(QSaveFile& file) {
  if (!file.commit()) {
    Fail(file);
  }
}

void WritePrivate(const QString& path, QByteArrayView content) {
  QSaveFile file(path);
  OpenPrivate(file);
  if (file.write(content.data(), content.size()) != content.size()) {
    Fail(file);
  }
  Commit(file);
}

void MakeOutputFolder(const QString& path) {
  const QFileInfo folder(QDir(path).absolutePath());
  if (folder.isDir()) {
    return;
  }
  MakeOutputFolder(folder.path());
  const QByteArray name = QFile::encodeName(folder.filePath());
  if (mkdir(name.constData(), 0700) != 0 && !(errno == EEXIST && folder.isDir())) {
    throw std::runtime_error("cannot make the folder " + folder.filePath().toStdString() + ": " +
                             std::strerror(errno));
  }
}

void SyncToDisk(const QString& folder) {
  const int descriptor = open(QFile::encodeName(folder).constData(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) {
    throw std::runtime_error("cannot open " + folder.toStdString() + ": " + std::strerror(errno));
  }
#ifdef __linux__
  const bool done = syncfs(descriptor) == 0;
#else
  sync();
  const bool done = true;
#endif
  const int error = errno;
  close(descriptor);
  if (!done) {
    throw std::runtime_error("the disk does not keep " + folder.toStdString() + ": " +
                             std::strerror(error));
  }
}

}  // namespace quorvane::platform
