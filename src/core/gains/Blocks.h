#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace quorvane::gains {

/// A row of values that grows without moving what it holds: reading millions in costs neither the
/// copies of a vector nor its peak of twice the memory.
template <class T>
class Blocks {
 public:
  T& Add() {
    if (size_ == blocks_.size() << kShift) {
      blocks_.push_back(std::make_unique_for_overwrite<T[]>(kBlock));
    }
    T& value = (*this)[size_++];
    value = T{};
    return value;
  }

  std::size_t size() const { return size_; }
  T& operator[](std::size_t i) { return blocks_[i >> kShift][i & (kBlock - 1)]; }
  const T& operator[](std::size_t i) const { return blocks_[i >> kShift][i & (kBlock - 1)]; }

 private:
  static constexpr std::size_t kShift = 12;
  static constexpr std::size_t kBlock = std::size_t{1} << kShift;

  std::vector<std::unique_ptr<T[]>> blocks_;
  std::size_t size_ = 0;
};

}  // namespace quorvane::gains
