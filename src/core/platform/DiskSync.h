#pragma once

#include <QString>

namespace quorvane::platform {

/// Returns once everything that was written below a folder is safe from a power cut. Throws
/// std::runtime_error when the system reports that it could not be written.
void SyncToDisk(const QString& folder);

}  // namespace quorvane::platform
