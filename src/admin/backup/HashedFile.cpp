#include "admin/backup/HashedFile.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <functional>
#include <stdexcept>

namespace quorvane::backup {
namespace {

constexpr qint64 kPiece = 1 << 20;

[[noreturn]] void Fail(const char* what, const QFileDevice& file) {
  throw std::runtime_error(
      QStringLiteral("cannot %1 %2: %3")
          .arg(QLatin1String(what), QDir::toNativeSeparators(file.fileName()), file.errorString())
          .toStdString());
}

void ReadPieces(const QString& path, ByteCount& count,
                const std::function<void(QByteArrayView)>& take) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    Fail("read", file);
  }
  QByteArray piece(kPiece, Qt::Uninitialized);
  for (qint64 size = 0; (size = file.read(piece.data(), kPiece)) != 0;) {
    if (size < 0) {
      Fail("read", file);
    }
    take(QByteArrayView(piece.constData(), size));
    count.Add(size);
  }
}

}  // namespace

HashedFile::HashedFile(const QString& root, const QString& path)
    : file_(QDir(root).filePath(path)) {
  told_.path = path;
  QDir().mkpath(QFileInfo(file_).absolutePath());
  if (!file_.open(QIODevice::WriteOnly | QIODevice::NewOnly,
                  QFile::ReadOwner | QFile::WriteOwner)) {
    Fail("write", file_);
  }
}

void HashedFile::Write(QByteArrayView bytes) {
  if (file_.write(bytes.data(), bytes.size()) != bytes.size()) {
    Fail("write", file_);
  }
  hash_.addData(bytes);
  told_.bytes += bytes.size();
}

BackupFile HashedFile::Finish() {
  if (!file_.flush()) {
    Fail("write", file_);
  }
  file_.close();
  told_.sha256 = hash_.result().toHex();
  return told_;
}

BackupFile CopyHashed(const QString& source, const QString& root, const QString& path,
                      ByteCount& count) {
  HashedFile copy(root, path);
  ReadPieces(source, count, [&](QByteArrayView bytes) { copy.Write(bytes); });
  return copy.Finish();
}

std::vector<FileBelow> FilesBelow(const QString& folder, const char* prefix) {
  std::vector<FileBelow> files;
  const QDir root(folder);
  QDirIterator all(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks,
                   QDirIterator::Subdirectories);
  while (all.hasNext()) {
    const QString source = all.next();
    files.push_back({source, QLatin1String(prefix) + root.relativeFilePath(source)});
  }
  return files;
}

QByteArray HashOf(const QString& path, ByteCount& count) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  ReadPieces(path, count, [&](QByteArrayView bytes) { hash.addData(bytes); });
  return hash.result().toHex();
}

}  // namespace quorvane::backup
