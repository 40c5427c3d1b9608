#pragma once

#include <QString>

#include <cstdint>
#include <stdexcept>

namespace quorvane {

/// Long work tells how far it is and is told whether to stop. The default does nothing.
class Progress {
 public:
  virtual ~Progress() = default;

  /// A new part of the work begins; `total` 0 means that its length is not known.
  virtual void Begin(const QString& what, std::int64_t total) {
    static_cast<void>(what);
    static_cast<void>(total);
  }
  virtual void Step(std::int64_t done) { static_cast<void>(done); }
  virtual bool Cancelled() const { return false; }

  /// Throws Cancellation when the user asked to stop; the transaction around the work then rolls
  /// back.
  void ThrowIfCancelled() const;
};

/// Part of a longer work, within the step that began at `at`: the program lives and can be
/// cancelled meanwhile, and no steps are added.
class WithinStep : public Progress {
 public:
  WithinStep(Progress& whole, std::int64_t at) : whole_(whole), at_(at) {}

  void Step(std::int64_t) override { whole_.Step(at_); }
  bool Cancelled() const override { return whole_.Cancelled(); }

 private:
  Progress& whole_;
  std::int64_t at_;
};

class Cancellation : public std::runtime_error {
 public:
  Cancellation() : std::runtime_error("cancelled") {}
};

inline void Progress::ThrowIfCancelled() const {
  if (Cancelled()) {
    throw Cancellation();
  }
}

}  // namespace quorvane
