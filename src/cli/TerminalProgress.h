#pragma once

#include "core/Progress.h"

#include <memory>

namespace quorvane::cli {

/// A bar on standard error when that is a terminal, nothing otherwise or when `quiet`. Ctrl-C
/// cancels the work at its next step.
std::unique_ptr<Progress> MakeTerminalProgress(bool quiet);

}  // namespace quorvane::cli
