#pragma once

#include "core/Progress.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QCryptographicHash>
#include <QFile>
#include <QString>

#include <cstdint>
#include <vector>

namespace quorvane::backup {

/// A file of a backup as the manifest names it.
struct BackupFile {
  QString path;  ///< from the backup's folder, parted by "/"
  std::int64_t bytes = 0;
  QByteArray sha256;  ///< 64 hexadecimal digits
};

/// A new file that is hashed while it is written. Throws std::runtime_error with path and reason.
class HashedFile {
 public:
  /// Makes `root`/`path` and the folders on the way.
  HashedFile(const QString& root, const QString& path);

  void Write(QByteArrayView bytes);
  BackupFile Finish();

 private:
  QFile file_;
  QCryptographicHash hash_{QCryptographicHash::Sha256};
  BackupFile told_;
};

/// Work over many files, whose progress is the bytes done so far.
struct ByteCount {
  Progress& progress;
  std::int64_t done = 0;

  /// Throws Cancellation.
  void Add(std::int64_t bytes) {
    done += bytes;
    progress.Step(done);
    progress.ThrowIfCancelled();
  }
};

BackupFile CopyHashed(const QString& source, const QString& root, const QString& path,
                      ByteCount& count);

struct FileBelow {
  QString source;  ///< its path
  QString path;    ///< its place in a backup
};

/// The files below a folder, hidden ones too, links left out: they could lead anywhere. `prefix` is
/// the folder's place in a backup ("SignDocs/").
std::vector<FileBelow> FilesBelow(const QString& folder, const char* prefix);

/// The file's SHA-256 as hexadecimal digits.
QByteArray HashOf(const QString& path, ByteCount& count);

}  // namespace quorvane::backup
