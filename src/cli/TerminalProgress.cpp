#include "cli/TerminalProgress.h"

#include "core/platform/Processes.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

namespace quorvane::cli {
namespace {

/// Cancels on Ctrl-C and when the system ends the program, in good order.
class Cancellable : public Progress {
 public:
  bool Cancelled() const override { return platform::EndRequested(); }
};

class Bar : public Cancellable {
 public:
  ~Bar() override { Clear(); }

  void Begin(const QString& what, std::int64_t total) override {
    what_ = what.toStdString();
    total_ = total;
    drawn_ = {};
  }

  void Step(std::int64_t done) override {
    const auto now = std::chrono::steady_clock::now();
    using namespace std::chrono_literals;
    if (total_ <= 0 || now - drawn_ < 100ms) {
      return;
    }
    drawn_ = now;
    constexpr int kWidth = 40;
    const auto filled = static_cast<int>(kWidth * std::min(done, total_) / total_);
    std::fprintf(stderr, "\r%s [%s%s] %3d%%", what_.c_str(), std::string(filled, '#').c_str(),
                 std::string(kWidth - filled, ' ').c_str(),
                 static_cast<int>(100 * std::min(done, total_) / total_));
    visible_ = true;
  }

 private:
  void Clear() const {
    if (visible_) {
      std::fprintf(stderr, "\r%s\r", std::string(78, ' ').c_str());
    }
  }

  std::string what_;
  std::int64_t total_ = 0;
  std::chrono::steady_clock::time_point drawn_;
  bool visible_ = false;
};

}  // namespace

std::optional<std::string> AskOnTerminal(const std::string& question) {
  if (isatty(STDIN_FILENO) == 0) {
    return std::nullopt;
  }
  std::fprintf(stderr, "%s ", question.c_str());
  std::string answer;
  // A signal ends this wait, not that of a stream.
  for (char letter = 0; read(STDIN_FILENO, &letter, 1) == 1 && letter != '\n';) {
    answer += letter;
  }
  return answer;
}

std::unique_ptr<Progress> MakeTerminalProgress(bool quiet) {
  if (quiet || isatty(STDERR_FILENO) == 0) {
    return std::make_unique<Cancellable>();
  }
  return std::make_unique<Bar>();
}

}  // namespace quorvane::cli
