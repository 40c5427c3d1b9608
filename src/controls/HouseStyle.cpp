#include "controls/HouseStyle.h"

#include "controls/Style.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleOption>

#include <algorithm>

namespace quorvane::controls {
namespace {

constexpr double kThin = 1;
constexpr double kStrong = 2;

bool HasFocus(const QStyleOption& option) {
  return (option.state & QStyle::State_HasFocus) != 0 &&
         (option.state & QStyle::State_Enabled) != 0;
}

void PaintField(QPainter& painter, const QStyleOption& option) {
  const bool focus = HasFocus(option);
  const QColor edge = focus ? option.palette.color(QPalette::Highlight) : EdgeColor(option.palette);
  const bool read_only = (option.state & QStyle::State_ReadOnly) != 0;
  const QColor fill = option.palette.color(read_only ? QPalette::Window : QPalette::Base);
  PaintBox(painter, option.rect, fill, edge, focus ? kStrong : kThin);
}

// Boxes inside of a drop-down list or a grid cell have their frame around them already.
void PaintLineEdit(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
  if (frame != nullptr && frame->lineWidth > 0) {
    PaintField(painter, option);
  } else if (widget == nullptr || qobject_cast<QComboBox*>(widget->parentWidget()) == nullptr) {
    painter.fillRect(option.rect, option.palette.color(QPalette::Base));
  }
}

void PaintChevron(QPainter& painter, const QRectF& area, const QColor& color) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF middle = area.center();
  painter.drawPolyline(
      QPolygonF{middle + QPointF(-4, -2), middle + QPointF(0, 2), middle + QPointF(4, -2)});
  painter.restore();
}

QRectF Square(const QRect& area) {
  const double side = std::min(area.width(), area.height());
  QRectF square(0, 0, side, side);
  square.moveCenter(QRectF(area).center());
  return square.adjusted(0.5, 0.5, -0.5, -0.5);
}

// Box and circle of a choice: an edge that is seen on every ground, and the accent when chosen.
QColor BeginIndicator(QPainter& painter, const QStyleOption& option) {
  const bool enabled = (option.state & QStyle::State_Enabled) != 0;
  const bool on = (option.state & (QStyle::State_On | QStyle::State_NoChange)) != 0;
  const QPalette& palette = option.palette;
  const QColor ink = Mix(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.6);
  const QColor edge = enabled ? ink : EdgeColor(palette);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(on ? palette.color(QPalette::HighlightedText) : edge, kThin));
  painter.setBrush(palette.color(on ? QPalette::Highlight : QPalette::Base));
  return palette.color(QPalette::HighlightedText);
}

void PaintCheckBox(QPainter& painter, const QStyleOption& option) {
  painter.save();
  const QColor mark = BeginIndicator(painter, option);
  const QRectF box = Square(option.rect);
  painter.drawRoundedRect(box, 3, 3);
  const double unit = box.width() / 12;
  painter.setPen(QPen(mark, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  if ((option.state & QStyle::State_On) != 0) {
    painter.drawPolyline(QPolygonF{box.topLeft() + QPointF(3, 6.2) * unit,
                                   box.topLeft() + QPointF(5.2, 8.4) * unit,
                                   box.topLeft() + QPointF(9, 3.8) * unit});
  } else if ((option.state & QStyle::State_NoChange) != 0) {
    painter.drawLine(box.topLeft() + QPointF(3, 6) * unit, box.topLeft() + QPointF(9, 6) * unit);
  }
  painter.restore();
}

void PaintRadioButton(QPainter& painter, const QStyleOption& option) {
  painter.save();
  const QColor mark = BeginIndicator(painter, option);
  const QRectF circle = Square(option.rect);
  painter.drawEllipse(circle);
  if ((option.state & QStyle::State_On) != 0) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(mark);
    painter.drawEllipse(circle.center(), circle.width() / 4, circle.height() / 4);
  }
  painter.restore();
}

void PaintViewFrame(QPainter& painter, const QStyleOption& option) {
  const bool focus = HasFocus(option);
  const QColor color =
      focus ? option.palette.color(QPalette::Highlight) : EdgeColor(option.palette);
  const double width = focus ? kStrong : kThin;
  const double inset = width / 2;
  painter.save();
  painter.setPen(QPen(color, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset));
  painter.restore();
}

// The current cell of a table stands on the accent colour itself when its row is selected.
void PaintFocus(QPainter& painter, const QStyleOption& option) {
  const bool in_table = (option.state & QStyle::State_Item) != 0;
  const QColor color =
      option.palette.color(in_table ? QPalette::HighlightedText : QPalette::Highlight);
  PaintBox(painter, option.rect, Qt::transparent, color, kStrong);
}

bool IsView(const QWidget* widget) {
  return qobject_cast<const QAbstractItemView*>(widget) != nullptr;
}

bool IsLines(const QWidget* widget) {
  return qobject_cast<const QPlainTextEdit*>(widget) != nullptr;
}

void PaintHeading(QPainter& painter, const QStyleOption& option) {
  const QPalette& palette = option.palette;
  painter.fillRect(option.rect,
                   Mix(palette.color(QPalette::Text), palette.color(QPalette::Window), 0.06));
  painter.setPen(EdgeColor(palette));
  painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
  painter.drawLine(option.rect.topRight(), option.rect.bottomRight());
}

}  // namespace

void PaintBox(QPainter& painter, const QRectF& area, const QColor& fill, const QColor& edge,
              double width) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(edge, width));
  painter.setBrush(fill);
  const double inset = width / 2;
  painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), kRadius, kRadius);
  painter.restore();
}

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  if (element == PE_Frame && IsView(widget)) {
    PaintViewFrame(*painter, *option);
    return;
  }
  if (element == PE_Frame && IsLines(widget)) {
    PaintField(*painter, *option);
    return;
  }
  switch (element) {
    case PE_PanelLineEdit:
      PaintLineEdit(*painter, *option, widget);
      return;
    case PE_FrameLineEdit:
      return;  // drawn with the panel
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
      PaintCheckBox(*painter, *option);
      return;
    case PE_IndicatorRadioButton:
      PaintRadioButton(*painter, *option);
      return;
    case PE_FrameFocusRect:
      PaintFocus(*painter, *option);
      return;
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void HouseStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  if (element == CE_HeaderSection || element == CE_HeaderEmptyArea) {
    PaintHeading(*painter, *option);
    return;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void HouseStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  if (control != CC_ComboBox) {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    return;
  }
  PaintField(*painter, *option);
  const QRect arrow = subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
  PaintChevron(*painter, arrow, option->palette.color(QPalette::ButtonText));
}

int HouseStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
  switch (metric) {
    case PM_DefaultFrameWidth:
      return IsView(widget) || IsLines(widget) ? 2
                                               : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_FocusFrameHMargin:
      return IsView(widget) ? kTightSpacing + 1 : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_HeaderMargin:
      return kTightSpacing + 2;
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
      return kMargin;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
      return kSpacing;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int HouseStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const {
  switch (hint) {
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
      return 0;
    case SH_UnderlineShortcut:
      return 1;
    default:
      return QProxyStyle::styleHint(hint, option, widget, data);
  }
}

}  // namespace quorvane::controls
