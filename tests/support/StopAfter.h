#pragma once

#include "core/Progress.h"

namespace quorvane::test {

/// A user who stops a work once that many steps are done.
class StopAfter final : public Progress {
 public:
  explicit StopAfter(std::int64_t steps) : steps_(steps) {}
  void Step(std::int64_t done) override { done_ = done; }
  bool Cancelled() const override { return done_ >= steps_; }
  std::int64_t Done() const { return done_; }

 private:
  std::int64_t steps_;
  std::int64_t done_ = 0;
};

}  // namespace quorvane::test
