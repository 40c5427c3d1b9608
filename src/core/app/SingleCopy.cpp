#include "core/app/SingleCopy.h"

#include "core/platform/Processes.h"

#include <QDir>

#include <utility>

namespace quorvane::app {

SingleCopy::SingleCopy(platform::FileLock lock) : lock_(std::move(lock)) {}

std::optional<SingleCopy> SingleCopy::Take(const QString& application_folder) {
  platform::MakeMissingFolder(application_folder);
  platform::FileLock lock(QDir(application_folder).filePath(QStringLiteral(".quorvane.lock")));
  if (!lock.TryExclusive()) {
    return std::nullopt;
  }
  return SingleCopy(std::move(lock));
}

}  // namespace quorvane::app
