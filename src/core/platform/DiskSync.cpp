#include "core/platform/DiskSync.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace quorvane::platform {

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
