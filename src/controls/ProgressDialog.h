#pragma once

#include "core/Progress.h"

#include <QElapsedTimer>

#include <memory>

class QWidget;

namespace quorvane::controls {

/// Shows how far long work is, with a Cancel button. It appears once the work has lasted for 300
/// ms. While it is shown, Step also redraws the windows that need it; all other windows of the
/// program take no input until the object is destroyed, so that no handler runs inside the work.
class ProgressDialog final : public Progress {
 public:
  explicit ProgressDialog(QWidget* parent);
  ~ProgressDialog() override;
  ProgressDialog(const ProgressDialog&) = delete;

  void Begin(const QString& what, std::int64_t total) override;
  void Step(std::int64_t done) override;
  bool Cancelled() const override;

 private:
  class Window;

  void Breathe();

  std::unique_ptr<Window> window_;
  std::int64_t total_ = 0;
  QElapsedTimer since_begin_;
  QElapsedTimer since_breath_;
};

}  // namespace quorvane::controls
