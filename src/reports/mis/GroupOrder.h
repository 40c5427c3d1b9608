#pragma once

#include "reports/mis/Holdings.h"
#include "reports/mis/Names.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quorvane::mis {

/// What a report can be grouped by.
enum class Level : std::uint8_t { kGroup, kClient, kAccount, kScrip };

/// The groups of a report from the outside in. Its lines are scrips when it is not detailed, and
/// are then no level of their own.
std::vector<Level> LevelsOf(Grouping grouping, bool detail);

/// A holding's place in a grouping: one number a level; equal numbers are one group.
struct Place {
  std::array<std::uint32_t, 4> path{};
  std::size_t holding = 0;
};

/// The holdings in the order of the levels, within them by scrip name, client code and account
/// number.
std::vector<Place> OrderBy(const std::vector<Level>& levels, const std::vector<Holding>& holdings,
                           const Names& names);

}  // namespace quorvane::mis
