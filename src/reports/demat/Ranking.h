#pragma once

#include <cstdint>
#include <limits>
#include <unordered_map>
#include <vector>

namespace quorvane::demat {

/// Keys of a master in its order. Keys in records that the master does not have follow, in the
/// order of their values; 0, a record without one, comes last.
class Ranking {
 public:
  void Add(int id) {
    ranks_.emplace(id, static_cast<std::uint32_t>(ids_.size()));
    ids_.push_back(id);
  }

  std::uint32_t Of(int id) const {
    const auto found = ranks_.find(id);
    if (found != ranks_.end()) {
      return found->second;
    }
    return id == 0 ? kNobody : kStranger + static_cast<std::uint32_t>(id);
  }

  int IdOf(std::uint32_t rank) const {
    if (rank == kNobody) {
      return 0;
    }
    return rank >= kStranger ? static_cast<int>(rank - kStranger) : ids_[rank];
  }

 private:
  static constexpr std::uint32_t kStranger = 0x80000000;
  static constexpr std::uint32_t kNobody = std::numeric_limits<std::uint32_t>::max();

  std::unordered_map<int, std::uint32_t> ranks_;
  std::vector<int> ids_;
};

}  // namespace quorvane::demat
