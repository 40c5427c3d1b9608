#pragma once

#include <QPlainTextEdit>

namespace quorvane::controls {

/// A text of several lines, such as an address: letters turn to upper case as they are typed, Enter
/// begins another line and Tab moves to the next control.
class LinesBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit LinesBox(QWidget* parent = nullptr);

  /// The lines with a line break between them.
  QString text() const { return toPlainText(); }
  void setText(const QString& text) { setPlainText(text); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
};

}  // namespace quorvane::controls
