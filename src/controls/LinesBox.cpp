#include "controls/LinesBox.h"

#include "controls/Style.h"

#include <QKeyEvent>
#include <QMimeData>

namespace quorvane::controls {
namespace {

constexpr int kLines = 3;
constexpr int kWidth = 200;
constexpr int kTextMargin = kTightSpacing + 1;  // as in a box of one line

}  // namespace

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
