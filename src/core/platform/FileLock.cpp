#include "core/platform/FileLock.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace quorvane::platform {
namespace {

bool Lock(int descriptor, int operation) {
  int result = 0;
  do {
    result = flock(descriptor, operation);
  } while (result != 0 && errno == EINTR);
  return result == 0;
}

}  // namespace

FileLock::FileLock(const QString& path)
    : descriptor_(open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
  if (descriptor_ < 0) {
    throw std::runtime_error("cannot open the lock file " + path.toStdString() + ": " +
                             std::strerror(errno));
  }
}

FileLock::~FileLock() {
  if (descriptor_ >= 0) {
    close(descriptor_);
  }
}

FileLock::FileLock(FileLock&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

bool FileLock::TryExclusive() {
  return Lock(descriptor_, LOCK_EX | LOCK_NB);
}
void FileLock::WaitShared() {
  Lock(descriptor_, LOCK_SH);
}
void FileLock::WaitExclusive() {
  Lock(descriptor_, LOCK_EX);
}

}  // namespace quorvane::platform
