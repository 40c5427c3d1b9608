#include "controls/ZENButton.h"

#include "controls/HouseStyle.h"
#include "controls/Style.h"
#include "controls/TextBox.h"

#include <QKeyEvent>
#include <QPainter>
#include <QShortcutEvent>
#include <QStyle>

namespace quorvane::controls {
namespace {

constexpr int kMinimumWidth = 76;
constexpr int kPadding = 12;
constexpr int kLeastPadding = 6;
constexpr int kGap = 6;

}  // namespace

ZENButton::ZENButton(const QString& name, const QString& text, QWidget* parent)
    : QPushButton(text, parent) {
  setObjectName(name);
  setAutoDefault(false);
  // In a row that is too narrow the empty room around the words goes first.
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setAttribute(Qt::WA_Hover);
}

QSize ZENButton::sizeHint() const {
  const QSize words = fontMetrics().size(Qt::TextShowMnemonic, text());
  const int icon_width = icon().isNull() ? 0 : iconSize().width() + kGap;
  const int width = words.width() + icon_width + 2 * kPadding;
  return {std::max(width, kMinimumWidth), std::max(words.height() + 2 * kGap, kBoxHeight)};
}

QSize ZENButton::minimumSizeHint() const {
  const QSize words = fontMetrics().size(Qt::TextShowMnemonic, text());
  const int icon_width = icon().isNull() ? 0 : iconSize().width() + kGap;
  return {words.width() + icon_width + 2 * kLeastPadding, sizeHint().height()};
}

bool ZENButton::event(QEvent* event) {
  if (event->type() == QEvent::Shortcut && isEnabled()) {
    setFocus(Qt::ShortcutFocusReason);
    // A box that was left for it and refuses has taken the focus back.
    if (isActiveWindow() && !hasFocus()) {
      return true;
    }
    // A menu of the main window has the same key; in the window in front it is the button's.
    if (static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
      click();
      return true;
    }
  }
  // A box that was left for this button may have opened a message: the release then never comes.
  if (event->type() == QEvent::WindowBlocked) {
    setDown(false);
  }
  return QPushButton::event(event);
}

void ZENButton::keyPressEvent(QKeyEvent* event) {
  if (IsEnter(*event)) {
    click();
    return;
  }
  QPushButton::keyPressEvent(event);
}

QColor ZENButton::Fill() const {
  const QColor text = palette().color(QPalette::ButtonText);
  const QColor plain = palette().color(QPalette::Button);
  const QColor ground = isDefault() ? palette().color(QPalette::Highlight) : plain;
  if (!isEnabled()) {
    return palette().color(QPalette::Window);
  }
  if (isDown()) {
    return Mix(text, ground, 0.22);
  }
  if (isChecked()) {
    return Mix(palette().color(QPalette::Highlight), plain, 0.18);
  }
  return underMouse() ? Mix(text, ground, 0.09) : ground;
}

QColor ZENButton::Ink() const {
  return isDefault() && isEnabled() ? palette().color(QPalette::HighlightedText)
                                    : palette().color(QPalette::ButtonText);
}

void ZENButton::PaintFrame(QPainter& painter) const {
  const QColor accent = palette().color(QPalette::Highlight);
  const bool strong = hasFocus() || isChecked();
  PaintBox(painter, rect(), Fill(), strong ? accent : EdgeColor(palette()), hasFocus() ? 2 : 1);
  if (hasFocus()) {
    // A second line inside tells the focus where the fill has the accent colour itself.
    PaintBox(painter, QRectF(rect()).adjusted(2, 2, -2, -2), Qt::transparent, Ink(), 1);
  }
  if (isChecked()) {
    painter.fillRect(QRect(kPadding, height() - 4, width() - 2 * kPadding, 2), accent);
  }
}

void ZENButton::PaintLabel(QPainter& painter) const {
  const QSize words = fontMetrics().size(Qt::TextShowMnemonic, text());
  const int icon_width = icon().isNull() ? 0 : iconSize().width() + kGap;
  QRect area(0, 0, words.width() + icon_width, height());
  area.moveCenter(rect().center());
  if (icon_width > 0) {
    icon().paint(&painter, QRect(area.topLeft(), QSize(iconSize().width(), height())),
                 Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    area.setLeft(area.left() + icon_width);
  }
  painter.setPen(Ink());
  painter.drawText(area, Qt::AlignCenter | Qt::TextShowMnemonic, text());
}

void ZENButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  PaintFrame(painter);
  PaintLabel(painter);
}

}  // namespace quorvane::controls
