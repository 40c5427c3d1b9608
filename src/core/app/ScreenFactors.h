#pragma once

#include "core/app/Ini.h"

namespace quorvane::app {

/// How far windows, designed for 800 by 600 pixels, are stretched.
struct ScreenFactors {
  float horizontal = 1;
  float vertical = 1;
};

/// The factors by section "ScrReso" of the screen settings. "Opt" 0 (also when missing) stretches
/// to the screen, 1 to the resolution "X" by "Y" (where 0 stands for the screen's), anything else
/// not at all. Screen sizes in pixels.
ScreenFactors SetScreenFactors(const IniFile& screen_ini, int screen_width, int screen_height);

}  // namespace quorvane::app
