#pragma once

#include <QString>

namespace quorvane::platform {

/// A lock on a file that the system itself releases when the process ends, also after a crash.
/// Several holders may share it, or one holds it alone.
class FileLock {
 public:
  /// Makes the file when it is missing; throws std::runtime_error when it cannot be opened.
  explicit FileLock(const QString& path);
  ~FileLock();
  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&& other) noexcept;

  /// False when another holder has it. A held lock changes its kind.
  bool TryExclusive();

  /// Wait for the lock.
  void WaitShared();
  void WaitExclusive();

 private:
  int descriptor_ = -1;
};

}  // namespace quorvane::platform
