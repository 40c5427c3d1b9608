#include "admin/users/Attempts.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quorvane::users {

using std::chrono::milliseconds;

Attempts::Attempts(Clock now) : now_(std::move(now)), next_(now_()) {}

void Attempts::Failed(const QString& account) {
  constexpr int kMostDoublings = 10;
  ++failures_[account];
  const int all = std::accumulate(failures_.cbegin(), failures_.cend(), 0);
  next_ = now_() + std::min(kLongestDelay, kFirstDelay * (1 << std::min(all - 1, kMostDoublings)));
}

void Attempts::Succeeded(const QString& account) {
  failures_.remove(account);
  failures_.remove(QString());
  next_ = now_();
}

milliseconds Attempts::Delay() const {
  return std::max(milliseconds(0), std::chrono::ceil<milliseconds>(next_ - now_()));
}

}  // namespace quorvane::users
