#include "controls/LinesBox.h"

#include "controls/Style.h"

#include <QKeyEvent>
#include <QMimeData>

namespace quorvane::controls {
namespace {

constexpr int kLines = 3;
constexpr int kWidth = 200;

}  // namespace

LinesBox::LinesBox(QWidget* parent) : QPlainTextEdit(parent) {
  setTabChangesFocus(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  document()->setDocumentMargin(kTightSpacing);
}

QString LinesBox::text() const {
  QString text = toPlainText();
  while (!text.isEmpty() && text.back().isSpace()) {
    text.chop(1);
  }
  return text;
}

QSize LinesBox::sizeHint() const {
  return {kWidth, kLines * fontMetrics().lineSpacing() + 2 * (kTightSpacing + frameWidth())};
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

void LinesBox::insertFromMimeData(const QMimeData* source) {
  insertPlainText(source->text().toUpper());
}

}  // namespace quorvane::controls
