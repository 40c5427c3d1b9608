#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace quorvane::controls {

enum class Icon { kInformation, kCritical };
enum class Answer { kYes, kNo };

/// Messages and questions to the user. Every call returns once the user has read or answered.
class Messages {
 public:
  virtual ~Messages() = default;

  /// A notice, with the information icon.
  virtual void Inform(const QString& text) = 0;

  /// A refusal or a failure, with the critical-stop icon.
  virtual void Refuse(const QString& text) = 0;

  /// A question with Yes and No; `preset` is the default button. Closing the box is a No.
  virtual bool Ask(const QString& text, Answer preset, Icon icon) = 0;
};

/// Messages in modal boxes over the active window, under the program's title. Texts are plain,
/// never markup.
class MessageBoxes final : public Messages {
 public:
  void Inform(const QString& text) override;
  void Refuse(const QString& text) override;
  bool Ask(const QString& text, Answer preset, Icon icon) override;
};

/// Runs event handlers. An exception that leaves one is caught here and reported in a box under the
/// handler's name; the window stays open with its contents. A handler may cause another handler to
/// run: each one is guarded by itself. The guard must outlive the objects that it connects.
class Guard {
 public:
  explicit Guard(Messages& messages) : messages_(messages) {}

  /// True when the work ended without an exception.
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
