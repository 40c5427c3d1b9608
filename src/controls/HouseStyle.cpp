#include "controls/HouseStyle.h"

#include "controls/Style.h"

#include <QComboBox>
#include <QPainter>
#include <QStyleOption>

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
  PaintBox(painter, option.rect, option.palette.color(QPalette::Base), edge,
           focus ? kStrong : kThin);
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
  switch (element) {
    case PE_PanelLineEdit:
      PaintLineEdit(*painter, *option, widget);
      return;
    case PE_FrameLineEdit:
      return;  // drawn with the panel
    case PE_FrameFocusRect:
      PaintBox(*painter, option->rect, Qt::transparent, option->palette.color(QPalette::Highlight),
               kStrong);
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
