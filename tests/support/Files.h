#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace quorvane::test {

/// Writes a file and the folder around it; returns its path.
inline QString WriteFile(const QString& path, const QByteArray& bytes) {
  QDir().mkpath(QFileInfo(path).absolutePath());
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
    throw std::runtime_error("cannot write " + path.toStdString());
  }
  return path;
}

/// "no file" when it cannot be read.
inline QByteArray ReadFile(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/// A sample of an outside file, in tests/core/files/samples.
inline QByteArray Sample(const QString& name) {
  return ReadFile(QStringLiteral(QUORVANE_SOURCE_DIR "/tests/core/files/samples/") + name);
}

}  // namespace quorvane::test
