#pragma once

#include "core/Progress.h"

#include <memory>
#include <optional>
#include <string>

namespace quorvane::cli {

/// A bar on standard error when that is a terminal, nothing otherwise or when `quiet`. Ctrl-C
/// cancels the work at its next step.
std::unique_ptr<Progress> MakeTerminalProgress(bool quiet);

/// The line that the user types after a question; nullopt when there is no terminal.
std::optional<std::string> AskOnTerminal(const std::string& question);

}  // namespace quorvane::cli
