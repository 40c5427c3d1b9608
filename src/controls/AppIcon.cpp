#include "controls/AppIcon.h"

#include <QPainter>

namespace quorvane::controls {
namespace {

constexpr int kGrid = 128;  ///< the drawing's own units

void PaintBars(QPainter& painter) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x1f, 0x4e, 0x79));
  painter.drawRoundedRect(8, 8, 112, 112, 24, 24);
  const std::pair<QRect, QColor> bars[] = {{{35, 66, 13, 20}, {0x9f, 0xc1, 0xe0}},
                                           {{57, 52, 13, 34}, {0xcf, 0xe2, 0xf3}},
                                           {{79, 38, 13, 48}, Qt::white}};
  for (const auto& [bar, color] : bars) {
    painter.setBrush(color);
    painter.drawRoundedRect(bar, 3, 3);
  }
}

void PaintLines(QPainter& painter) {
  const QColor rise(0xf2, 0xb1, 0x34);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(0x9f, 0xc1, 0xe0), 5, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(30, 92, 98, 92);
  painter.setPen(QPen(rise, 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygon({{32, 54}, {54, 37}, {70, 42}, {94, 22}}));
  painter.setPen(Qt::NoPen);
  painter.setBrush(rise);
  painter.drawEllipse(QPoint(94, 22), 6, 6);
}

}  // namespace

QIcon AppIcon() {
  QIcon icon;
  for (const int size : {16, 32, 48, 64, 128, 256}) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(static_cast<double>(size) / kGrid, static_cast<double>(size) / kGrid);
    PaintBars(painter);
    PaintLines(painter);
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace quorvane::controls
