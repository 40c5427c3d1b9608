#include "reporting/screen/window/ReportHeadingsView.h"

#include "controls/Style.h"

#include <QPainter>

namespace quorvane::reporting {

ReportHeadingsView::ReportHeadingsView(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setHighlightSections(false);
  setSectionsClickable(false);
  setMinimumSectionSize(controls::kBoxHeight);
}

void ReportHeadingsView::SetGroups(std::vector<ColumnGroup> groups) {
  groups_ = std::move(groups);
  updateGeometry();
  viewport()->update();
}

int ReportHeadingsView::LineHeight() const {
  return fontMetrics().height() + controls::kSpacing + controls::kTightSpacing;
}

QSize ReportHeadingsView::sizeHint() const {
  return {QHeaderView::sizeHint().width(), LineHeight() * (groups_.empty() ? 1 : 2)};
}

void ReportHeadingsView::paintSection(QPainter* painter, const QRect& area, int section) const {
  QHeaderView::paintSection(painter, groups_.empty() ? area : area.adjusted(0, LineHeight(), 0, 0),
                            section);
}

QRect ReportHeadingsView::GroupArea(int first, int count) const {
  const int last = std::min(first + count, this->count()) - 1;
  const int left = sectionViewportPosition(first);
  return {left, 0, sectionViewportPosition(last) + sectionSize(last) - left, LineHeight()};
}

void ReportHeadingsView::paintEvent(QPaintEvent* event) {
  QHeaderView::paintEvent(event);
  QPainter painter(viewport());
  int first = 0;
  for (const ColumnGroup& group : groups_) {
    if (first >= count()) {
      return;
    }
    const QRect area = GroupArea(first, static_cast<int>(group.columns));
    painter.fillRect(area, controls::Mix(palette().color(QPalette::Text),
                                         palette().color(QPalette::Window), 0.06));
    painter.setPen(controls::EdgeColor(palette()));
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    painter.drawLine(area.topRight(), area.bottomRight());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(area, Qt::AlignCenter, group.heading);
    first += static_cast<int>(group.columns);
  }
}

}  // namespace quorvane::reporting
