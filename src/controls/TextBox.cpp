#include "controls/TextBox.h"

#include "controls/Style.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace quorvane::controls {
namespace {

// A menu, a pop-up list or another program takes the focus only for a while.
bool IsForAWhile(const QFocusEvent& event) {
  return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::ActiveWindowFocusReason ||
         event.reason() == Qt::MenuBarFocusReason;
}

bool IsTyped(const QKeyEvent& event) {
  const bool shortcut = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
  return !shortcut && !event.text().isEmpty() && event.text().front().isLetterOrNumber();
}

}  // namespace

bool IsEnter(const QKeyEvent& event) {
  const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  return enter && (event.modifiers() & ~Qt::KeypadModifier) == 0;
}

TextBox::TextBox(QWidget* parent) : QLineEdit(parent) {
  setMinimumHeight(kBoxHeight);
  setTextMargins(kTightSpacing, 0, kTightSpacing, 0);
  connect(this, &QLineEdit::textEdited, this, &TextBox::TurnToUpperCase);
  connect(this, &QLineEdit::textChanged, this, &TextBox::ShowBeginning);
  // The same text set again moves the cursor without a change.
  connect(this, &QLineEdit::cursorPositionChanged, this, &TextBox::ShowBeginning);
}

void TextBox::SetCompletions(const QStringList& texts) {
  completions_ = texts;
  completion_source_ = nullptr;
}

void TextBox::keyPressEvent(QKeyEvent* event) {
  if (IsEnter(*event)) {
    focusNextPrevChild(true);
    return;
  }
  const bool typed = IsTyped(*event);
  if (typed && upper_case_) {
    QKeyEvent upper(event->type(), event->key(), event->modifiers(), event->text().toUpper());
    QLineEdit::keyPressEvent(&upper);
  } else {
    QLineEdit::keyPressEvent(event);
  }
  if (typed && !isReadOnly()) {
    Complete();
  }
}

void TextBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (IsForAWhile(*event)) {
    return;
  }
  if (completion_source_) {
    completions_ = completion_source_();
  }
  Q_EMIT Entered();
  entered_by_mouse_ = event->reason() == Qt::MouseFocusReason;
  if (select_on_entry_) {
    selectAll();
  }
}

void TextBox::mousePressEvent(QMouseEvent* event) {
  QLineEdit::mousePressEvent(event);
  // The press that enters the box would otherwise put the cursor where the pointer is.
  if (std::exchange(entered_by_mouse_, false) && select_on_entry_) {
    selectAll();
  }
}

void TextBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (!IsForAWhile(*event)) {
    // First, since whoever hears of a refusal may select the text again.
    setCursorPosition(0);
    Leave();
    Q_EMIT Left();
  }
}

// What is pasted or composed by an input method does not come through the keyboard.
void TextBox::TurnToUpperCase(const QString& text) {
  const QString upper = text.toUpper();
  if (!upper_case_ || upper == text) {
    return;
  }
  const int cursor = cursorPosition();
  setText(upper);
  setCursorPosition(cursor);
}

// Of a text that is longer than its box and that nobody is typing.
void TextBox::ShowBeginning() {
  if (!hasFocus() && !isModified() && !hasSelectedText()) {
    setCursorPosition(0);
  }
}

void TextBox::Complete() {
  const QString typed = text();
  if (cursorPosition() != typed.size()) {
    return;
  }
  const auto fits = [&](const QString& one) { return one.startsWith(typed, Qt::CaseInsensitive); };
  const auto found = std::ranges::find_if(completions_, fits);
  if (found == completions_.end() || found->size() == typed.size()) {
    return;
  }
  const QString remainder = found->mid(typed.size());
  insert(upper_case_ ? remainder.toUpper() : remainder);
  // From the end backwards: the cursor stays behind what was typed.
  const auto length = static_cast<int>(text().size());
  setSelection(length, static_cast<int>(typed.size()) - length);
}

}  // namespace quorvane::controls
