#include "core/platform/ProcessLimits.h"

#include <sys/resource.h>
#include <unistd.h>

#ifdef __linux__
#include <sys/prctl.h>
#endif

#include <algorithm>
#include <csignal>

namespace quorvane::platform {
namespace {

volatile std::sig_atomic_t status_when_used_up = 1;

void EndUsedUp(int /*signal*/) {
  _exit(status_when_used_up);
}

void Limit(int resource, rlim_t soft, rlim_t hard) {
  rlimit limit = {};
  if (getrlimit(resource, &limit) == 0) {
    limit.rlim_cur = std::min(soft, limit.rlim_max);
    limit.rlim_max = std::min(hard, limit.rlim_max);
    setrlimit(resource, &limit);
  }
}

}  // namespace

void LimitThisProcess(const ProcessLimits& limits, int exit_status) {
  status_when_used_up = exit_status;
  std::signal(SIGXCPU, EndUsedUp);
  const auto seconds = static_cast<rlim_t>(limits.cpu.count());
  Limit(RLIMIT_CPU, seconds, seconds + 1);
  Limit(RLIMIT_CORE, 0, 0);
// The address sanitizer reserves terabytes of addresses for itself.
#ifndef __SANITIZE_ADDRESS__
  const auto bytes = static_cast<rlim_t>(limits.bytes);
  Limit(RLIMIT_AS, bytes, bytes);
#endif
}

void EndWithParent() {
#ifdef __linux__
  prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
}

}  // namespace quorvane::platform
