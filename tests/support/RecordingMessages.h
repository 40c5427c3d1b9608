#pragma once

#include "controls/Messages.h"

#include <QString>
#include <QStringList>

#include <deque>
#include <optional>
#include <vector>

namespace quorvane::test {

/// Takes the place of the message boxes: remembers what was said and gives the answers that a test
/// wrote down beforehand. A question without one gets its preset answer.
class RecordingMessages final : public controls::Messages {
 public:
  enum class Kind { kInform, kRefuse, kAsk };

  struct Message {
    Kind kind = Kind::kInform;
    QString text = {};
    controls::Icon icon = controls::Icon::kInformation;
    std::optional<controls::Answer> preset = {};  ///< of a question
  };

  void WillAnswer(bool yes) { answers_.push_back(yes); }

  void Inform(const QString& text) override {
    said.push_back({.kind = Kind::kInform, .text = text});
  }

  void Refuse(const QString& text) override {
    said.push_back({.kind = Kind::kRefuse, .text = text, .icon = controls::Icon::kCritical});
  }

  bool Ask(const QString& text, controls::Answer preset, controls::Icon icon) override {
    said.push_back({.kind = Kind::kAsk, .text = text, .icon = icon, .preset = preset});
    if (answers_.empty()) {
      return preset == controls::Answer::kYes;
    }
    const bool answer = answers_.front();
    answers_.pop_front();
    return answer;
  }

  QString LastText() const { return said.empty() ? QString() : said.back().text; }

  QStringList Texts() const {
    QStringList texts;
    for (const Message& message : said) {
      texts.append(message.text);
    }
    return texts;
  }

  std::vector<Message> said;

 private:
  std::deque<bool> answers_;
};

}  // namespace quorvane::test
