#pragma once

#include "controls/Messages.h"

namespace quorvane::controls {

/// Messages in modal boxes over the active window, under the program's title. Texts are plain,
/// never markup.
class MessageBoxes final : public Messages {
 public:
  void Inform(const QString& text) override;
  void Refuse(const QString& text) override;
  bool Ask(const QString& text, Answer preset, Icon icon) override;
};

}  // namespace quorvane::controls
