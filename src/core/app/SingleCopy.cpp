#include "core/app/SingleCopy.h"

#include <QDir>

#include <stdexcept>
#include <utility>

namespace quorvane::app {

SingleCopy::SingleCopy(platform::FileLock lock) : lock_(std::move(lock)) {}

std::optional<SingleCopy> SingleCopy::Take(const QString& application_folder) {
  if (!QDir().mkpath(application_folder)) {
    throw std::runtime_error("cannot make the application folder " +
                             application_folder.toStdString());
  }
  platform::FileLock lock(QDir(application_folder).filePath(QStringLiteral(".quorvane.lock")));
  if (!lock.TryExclusive()) {
    return std::nullopt;
  }
  return SingleCopy(std::move(lock));
}

}  // namespace quorvane::app
