#pragma once

#include "admin/settings/Settings.h"
#include "core/app/Folders.h"

namespace quorvane::settings {

/// The settings as they are kept in "OrvikConfig.INI" (section "ScrReso") and "Confg.ini" (all
/// others), with the presets of what is missing there. Throws std::runtime_error when a file cannot
/// be read.
Settings LoadSettings(const app::Folders& folders);

/// Keeps what differs from the files; every other line of theirs stays, and a preset is not
/// written. Refused settings change nothing, and so does a failure (std::runtime_error) of either
/// file.
MaybeRefusal SaveSettings(const app::Folders& folders, const Settings& settings);

}  // namespace quorvane::settings
