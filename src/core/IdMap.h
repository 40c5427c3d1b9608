#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quorvane {

/// Values by database key for millions of look-ups: filled first, then sealed, then searched. Keys
/// that are close together, as keys of one table do, are found by place, others by bisection.
template <class T>
class IdMap {
 public:
  void Put(int id, T value) { entries_.emplace_back(id, std::move(value)); }

  /// Of two values of one key the first one stays.
  void Seal() {
    const auto by_id = [](const auto& a, const auto& b) { return a.first < b.first; };
    if (!std::is_sorted(entries_.begin(), entries_.end(), by_id)) {
      std::stable_sort(entries_.begin(), entries_.end(), by_id);
    }
    entries_.erase(std::unique(entries_.begin(), entries_.end(),
                               [](const auto& a, const auto& b) { return a.first == b.first; }),
                   entries_.end());
    BuildPlaces();
  }

  const T* Find(int id) const {
    if (!places_.empty()) {
      const std::int64_t offset = std::int64_t{id} - first_;
      if (offset < 0 || offset >= static_cast<std::int64_t>(places_.size()) ||
          places_[static_cast<std::size_t>(offset)] == kNone) {
        return nullptr;
      }
      return &entries_[places_[static_cast<std::size_t>(offset)]].second;
    }
    const auto found =
        std::lower_bound(entries_.begin(), entries_.end(), id,
                         [](const auto& entry, int wanted) { return entry.first < wanted; });
    return found != entries_.end() && found->first == id ? &found->second : nullptr;
  }

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  void BuildPlaces() {
    places_.clear();
    if (entries_.empty()) {
      return;
    }
    first_ = entries_.front().first;
    const std::int64_t span = std::int64_t{entries_.back().first} - first_ + 1;
    if (span > static_cast<std::int64_t>(entries_.size()) * 4 + 1024) {
      return;
    }
    places_.assign(static_cast<std::size_t>(span), kNone);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      places_[static_cast<std::size_t>(entries_[i].first - first_)] = static_cast<std::uint32_t>(i);
    }
  }

  std::vector<std::pair<int, T>> entries_;
  std::vector<std::uint32_t> places_;
  int first_ = 0;
};

}  // namespace quorvane
