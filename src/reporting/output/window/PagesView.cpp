#include "reporting/output/window/PagesView.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace quorvane::reporting {
namespace {

constexpr double kPointsAnInch = 72;
constexpr double kZoomStep = 1.25;
constexpr double kSmallestZoom = 0.2;
constexpr double kLargestZoom = 5;
constexpr int kContext = 80;  // pixels shown above a place that was found

double ScreenPixelsAPoint() {
  return QGuiApplication::primaryScreen()->logicalDotsPerInch() / kPointsAnInch;
}

}  // namespace

PagesView::PagesView(QWidget* parent) : QPdfView(parent) {
  setPageMode(PageMode::MultiPage);
  setZoomMode(ZoomMode::FitToWidth);
  setFocusPolicy(Qt::StrongFocus);
}

int PagesView::CurrentPage() const {
  return pageNavigator()->currentPage();
}

void PagesView::GoTo(int page) {
  pageNavigator()->jump(std::clamp(page, 0, std::max(0, document()->pageCount() - 1)), {});
}

double PagesView::PixelsAPoint() const {
  const QSizeF points = document()->pagePointSize(0);
  const QMargins margins = documentMargins();
  const double width = viewport()->width() - margins.left() - margins.right();
  switch (zoomMode()) {
    case ZoomMode::FitToWidth:
      return width / points.width();
    case ZoomMode::FitInView:
      return std::min(width / points.width(),
                      (viewport()->height() - pageSpacing()) / points.height());
    case ZoomMode::Custom:
      break;
  }
  return ScreenPixelsAPoint() * zoomFactor();
}

double PagesView::Zoom() const {
  return document()->pageCount() == 0 ? 1 : PixelsAPoint() / ScreenPixelsAPoint();
}

void PagesView::SetZoom(double zoom) {
  setZoomFactor(std::clamp(zoom, kSmallestZoom, kLargestZoom));
  setZoomMode(ZoomMode::Custom);
}

// Every page of a report has one size, so that its place follows from its number.
QRectF PagesView::AreaOf(int page) const {
  const QSizeF size = QSizeF(document()->pagePointSize(page) * PixelsAPoint()).toSize();
  const QMargins margins = documentMargins();
  const double all =
      std::max<double>(viewport()->width(), size.width() + margins.left() + margins.right());
  return {QPointF((all - size.width()) / 2, margins.top() + page * (size.height() + pageSpacing())),
          size};
}

void PagesView::Mark(const std::optional<QPdfLink>& place) {
  mark_ = place;
  if (mark_ && !mark_->rectangles().isEmpty()) {
    const QRectF found = mark_->rectangles().front();
    GoTo(mark_->page());
    const double top = AreaOf(mark_->page()).top() + found.top() * PixelsAPoint();
    verticalScrollBar()->setValue(static_cast<int>(top) - kContext);
  }
  viewport()->update();
}

void PagesView::paintEvent(QPaintEvent* event) {
  QPdfView::paintEvent(event);
  if (!mark_ || document()->pageCount() == 0) {
    return;
  }
  const QRectF page = AreaOf(mark_->page());
  const QPointF scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
  QPainter painter(viewport());
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(255, 196, 0, 110));
  for (const QRectF& area : mark_->rectangles()) {
    painter.drawRect(QRectF(page.topLeft() - scrolled + area.topLeft() * PixelsAPoint(),
                            area.size() * PixelsAPoint())
                         .adjusted(-1, -1, 1, 1));
  }
}

void PagesView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Home:
      return GoTo(0);
    case Qt::Key_End:
      return GoTo(document()->pageCount() - 1);
    case Qt::Key_PageDown:
      return GoTo(CurrentPage() + 1);
    case Qt::Key_PageUp:
      return GoTo(CurrentPage() - 1);
    default:
      QPdfView::keyPressEvent(event);
  }
}

void PagesView::wheelEvent(QWheelEvent* event) {
  if ((event->modifiers() & Qt::ControlModifier) == 0) {
    QPdfView::wheelEvent(event);
    return;
  }
  SetZoom(event->angleDelta().y() > 0 ? Zoom() * kZoomStep : Zoom() / kZoomStep);
}

}  // namespace quorvane::reporting
