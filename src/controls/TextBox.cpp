#include "controls/TextBox.h"

#include "controls/Style.h"
#include "core/text/Amounts.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QRegularExpressionValidator>

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

constexpr int kLines = 3;
constexpr int kWidth = 200;
constexpr int kTextMargin = kTightSpacing + 1;  // as in a box of one line

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

AmountBox::AmountBox(QWidget* parent, Form form) : TextBox(parent), form_(form) {
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  static const QRegularExpression kTypable(QStringLiteral("-?[0-9,]*\\.?[0-9]*"));
  setValidator(new QRegularExpressionValidator(kTypable, this));
}

double AmountBox::Amount() const {
  return text::Val(QLineEdit::text().remove(QLatin1Char(',')));
}

void AmountBox::SetAmount(double value) {
  setText(form_ == Form::kPercent ? text::FormatPercent(value) : text::FormatAmount(value));
}

void AmountBox::Leave() {
  if (!QLineEdit::text().isEmpty()) {
    SetAmount(Amount());
  }
}

NumberBox::NumberBox(Sign sign, QWidget* parent) : TextBox(parent) {
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  static const QRegularExpression kTypable(QStringLiteral("[0-9]*\\.?[0-9]*"));
  static const QRegularExpression kTypableBelowZero(QStringLiteral("-?[0-9]*\\.?[0-9]*"));
  setValidator(
      new QRegularExpressionValidator(sign == Sign::kAny ? kTypableBelowZero : kTypable, this));
}

LinesBox::LinesBox(QWidget* parent) : QPlainTextEdit(parent) {
  setTabChangesFocus(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  document()->setDocumentMargin(kTextMargin);
  // The frame fills the box: a ground of the text's own would cover its round corners.
  viewport()->setAutoFillBackground(false);
}

QSize LinesBox::sizeHint() const {
  return {kWidth, kLines * fontMetrics().lineSpacing() + 2 * (kTextMargin + frameWidth())};
}

void LinesBox::keyPressEvent(QKeyEvent* event) {
  const bool letter = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0 &&
                      !event->text().isEmpty() && event->text().front().isLetter();
  if (!letter) {
    QPlainTextEdit::keyPressEvent(event);
    return;
  }
  QKeyEvent upper(event->type(), event->key(), event->modifiers(), event->text().toUpper());
  QPlainTextEdit::keyPressEvent(&upper);
}

// The frame tells the focus, and only the text is painted anew by itself.
void LinesBox::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  update();
}

void LinesBox::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  update();
}

void LinesBox::insertFromMimeData(const QMimeData* source) {
  insertPlainText(source->text().toUpper());
}

}  // namespace quorvane::controls
