#pragma once

#include <QProxyStyle>

namespace quorvane::controls {

/// Fusion with flat boxes, lists and headings, and a focus frame that is easily seen.
class HouseStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  HouseStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override;
};

/// A rounded box: thin edge, or a strong one in the accent colour with the focus.
void PaintBox(QPainter& painter, const QRectF& area, const QColor& fill, const QColor& edge,
              double width);

}  // namespace quorvane::controls
