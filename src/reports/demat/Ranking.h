#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace quorvane::demat {

/// Keys of a master in its order. Keys that records name and no master knows follow, in the order
/// of their values; 0, a record without one, comes last.
class Ranking {
 public:
  void Add(int id);
  std::uint32_t Of(int id) const;
  int IdOf(std::uint32_t rank) const;

 private:
  std::unordered_map<int, std::uint32_t> ranks_;
  std::vector<int> ids_;
};

}  // namespace quorvane::demat
