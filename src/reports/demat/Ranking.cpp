#include "reports/demat/Ranking.h"

#include <limits>

namespace quorvane::demat {
namespace {

constexpr std::uint32_t kStranger = 0x80000000;
constexpr std::uint32_t kNobody = std::numeric_limits<std::uint32_t>::max();

}  // namespace

void Ranking::Add(int id) {
  ranks_.emplace(id, static_cast<std::uint32_t>(ids_.size()));
  ids_.push_back(id);
}

std::uint32_t Ranking::Of(int id) const {
  const auto found = ranks_.find(id);
  if (found != ranks_.end()) {
    return found->second;
  }
  return id == 0 ? kNobody : kStranger + static_cast<std::uint32_t>(id);
}

int Ranking::IdOf(std::uint32_t rank) const {
  if (rank == kNobody) {
    return 0;
  }
  return rank >= kStranger ? static_cast<int>(rank - kStranger) : ids_[rank];
}

}  // namespace quorvane::demat
