#pragma once

#include <QHash>
#include <QString>

#include <chrono>
#include <functional>

namespace quorvane::users {

/// How long to wait before the next password is taken, longer with every one that failed in a row:
/// against guessing. One object serves every window of the program, so that a new window starts no
/// new count.
class Attempts {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  explicit Attempts(Clock now = std::chrono::steady_clock::now);

  /// Failures of an account count until its own password is given: somebody who knows another one
  /// cannot begin afresh. An empty account is a name that nobody has; any success forgets those.
  void Failed(const QString& account);
  void Succeeded(const QString& account);

  /// What is left of the time to wait; nothing when the next attempt is taken at once.
  std::chrono::milliseconds Delay() const;

  static constexpr std::chrono::milliseconds kFirstDelay{500};
  static constexpr std::chrono::milliseconds kLongestDelay{30'000};

 private:
  Clock now_;
  QHash<QString, int> failures_;
  std::chrono::steady_clock::time_point next_;
};

}  // namespace quorvane::users
