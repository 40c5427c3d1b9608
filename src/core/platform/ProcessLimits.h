#pragma once

#include <chrono>
#include <cstdint>

namespace quorvane::platform {

/// What a process may use.
struct ProcessLimits {
  std::chrono::seconds cpu{10};
  std::int64_t bytes = std::int64_t{1536} << 20;  ///< of addresses
};

/// Bounds this process and each one that it starts, and lets none leave a copy of its memory on the
/// disk. When its time is used up this process ends with `exit_status`; memory beyond the bound is
/// not given. Limits that the system does not know are passed over.
void LimitThisProcess(const ProcessLimits& limits, int exit_status);

/// Has the system end this process when the one that started it ends, however that happens. Nothing
/// happens where the system cannot. May be called between fork and exec.
void EndWithParent();

}  // namespace quorvane::platform
