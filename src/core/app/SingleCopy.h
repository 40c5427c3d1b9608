#pragma once

#include "core/platform/FileLock.h"

#include <QString>

#include <optional>

namespace quorvane::app {

/// Shown with the critical-stop icon to the user who starts a second copy.
inline constexpr char kPreviousInstance[] =
    "A Previous Instance of the Application is Already Running.";

/// Proof that this process is the only copy of the program working in an application folder. Ends
/// with the object or with the process, however it ends, so that a program that crashed keeps
/// nobody out.
class SingleCopy {
 public:
  /// nullopt while another copy holds the folder; at once, without waiting. Makes the folder when
  /// it is missing; throws std::runtime_error when it cannot be used.
  static std::optional<SingleCopy> Take(const QString& application_folder);

 private:
  explicit SingleCopy(platform::FileLock lock);

  platform::FileLock lock_;
};

}  // namespace quorvane::app
