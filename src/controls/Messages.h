#pragma once

#include <QString>

namespace quorvane::controls {

enum class Icon { kInformation, kCritical };
enum class Answer { kYes, kNo };

/// The way to speak to the user. Every call returns once the user has read or answered.
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

}  // namespace quorvane::controls
