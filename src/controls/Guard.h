#pragma once

#include "controls/Messages.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace quorvane::controls {

/// Runs event handlers. What escapes from one is caught here and reported in a box under the
/// handler's name; the window stays open with its contents. A handler may cause another handler to
/// run: each one is guarded by itself. The guard must outlive the objects that it connects.
class Guard {
 public:
  explicit Guard(Messages& messages) : messages_(messages) {}

  /// True when the work came to its end.
  bool Run(const QString& handler, const std::function<void()>& work) const;

  /// Runs `window->*slot` under the handler's name whenever the signal is sent. The slot may take
  /// fewer arguments than the signal has.
  template <class Sender, class Signal, class Window, class... Args>
  void Connect(const Sender* sender, Signal signal, Window* window, void (Window::*slot)(Args...),
               const QString& handler) const {
    QObject::connect(sender, signal, window, [this, window, slot, handler](Args... args) {
      Run(handler, [&] { (window->*slot)(args...); });
    });
  }

 private:
  void Report(const QString& handler, const std::optional<QString>& failure) const;

  Messages& messages_;
};

}  // namespace quorvane::controls
