#pragma once

#include <QPushButton>

namespace quorvane::controls {

/// The command button of every window, drawn by itself: text with mnemonic, icon, and a look of its
/// own for hovered, pressed, disabled, checked, focused and default. Enter presses it as Space
/// does, and its mnemonic takes the focus first, so that the box left behind is settled before the
/// click.
class ZENButton : public QPushButton {
  Q_OBJECT

 public:
  /// `name` is the control's name ("cmdAdd"), `text` its caption ("&Add").
  ZENButton(const QString& name, const QString& text, QWidget* parent = nullptr);

  /// True for a button that drops what was entered: no message is shown about a box left for it.
  void SetCancels(bool on) { cancels_ = on; }
  bool Cancels() const { return cancels_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize SizeWith(int padding) const;
  QColor Fill() const;
  QColor Ink() const;
  void PaintFrame(QPainter& painter) const;
  void PaintLabel(QPainter& painter) const;

  bool cancels_ = false;
};

}  // namespace quorvane::controls
