#include "documents/window/DocumentPageView.h"

#include "controls/Style.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorvane::documents {
namespace {

constexpr int kQuarters = 4;
constexpr double kQuarter = 90;
constexpr double kLargest = 2;  // times the actual size; a small signature is not blown up further
constexpr int kLightBackground = 128;
constexpr int kScrollStep = 24;

void PaintAround(QPainter& painter, const QPointF& middle, const DocumentPage& page, double factor,
                 int quarter_turns) {
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.translate(middle);
  painter.rotate(kQuarter * quarter_turns);
  const QSizeF size = page.actual * factor;
  const QRectF place(QPointF(-size.width() / 2, -size.height() / 2), size);
  painter.drawImage(place, page.LevelFor(size.width() * painter.device()->devicePixelRatioF()));
  painter.restore();
}

QSizeF Turned(const QSizeF& size, int quarter_turns) {
  return quarter_turns % 2 == 0 ? size : size.transposed();
}

double FittingFactor(const QSizeF& page, const QSizeF& place) {
  return std::min(place.width() / page.width(), place.height() / page.height());
}

void Arrange(QScrollBar& bar, double length, int room) {
  bar.setRange(0, std::max(0, static_cast<int>(std::ceil(length)) - room));
  bar.setPageStep(room);
  bar.setSingleStep(kScrollStep);
}

}  // namespace

void PaintPageInto(QPainter& painter, const QRectF& place, const DocumentPage& page,
                   int quarter_turns) {
  const double factor = FittingFactor(Turned(page.actual, quarter_turns), place.size());
  PaintAround(painter, place.center(), page, factor, quarter_turns);
}

DocumentPageView::DocumentPageView(QWidget* parent)
    : QAbstractScrollArea(parent),
      background_(palette().color(QPalette::Mid)),
      copy_(new QAction(tr("&Copy the Text of the Page"), this)) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Page of the document"));
  copy_->setShortcut(QKeySequence::Copy);
  copy_->setShortcutContext(Qt::WidgetShortcut);
  copy_->setEnabled(false);
  addAction(copy_);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(copy_, &QAction::triggered, this, &DocumentPageView::CopyText);
}

void DocumentPageView::Show(DocumentPage page) {
  page_ = std::move(page);
  hint_.clear();
  setAccessibleDescription(tr("Page %1 of %2").arg(page_.number + 1).arg(page_.count));
  copy_->setEnabled(!page_.text.isEmpty());
  Arrange();
}

void DocumentPageView::Clear(const QString& hint) {
  page_ = {};
  hint_ = hint;
  setAccessibleDescription(hint);
  copy_->setEnabled(false);
  Arrange();
}

void DocumentPageView::CopyText() const {
  QGuiApplication::clipboard()->setText(page_.text);
}

void DocumentPageView::Rotate90() {
  quarter_turns_ = (quarter_turns_ + 1) % kQuarters;
  Arrange();
}

void DocumentPageView::Straighten() {
  quarter_turns_ = 0;
  Arrange();
}

void DocumentPageView::SetView(View view) {
  view_ = view;
  Arrange();
}

void DocumentPageView::SetBackgroundColor(const QColor& color) {
  background_ = color;
  viewport()->update();
}

QSizeF DocumentPageView::TurnedSize() const {
  return Turned(page_.actual, quarter_turns_);
}

double DocumentPageView::Factor() const {
  if (view_ == View::kActual) {
    return 1;
  }
  const QSizeF room = maximumViewportSize() - QSize(2, 2) * controls::kMargin;
  return std::clamp(FittingFactor(TurnedSize(), room), 0.0, kLargest);
}

void DocumentPageView::Arrange() {
  const QSizeF shown = page_.IsEmpty() ? QSizeF(0, 0) : TurnedSize() * Factor();
  documents::Arrange(*horizontalScrollBar(), shown.width(), viewport()->width());
  documents::Arrange(*verticalScrollBar(), shown.height(), viewport()->height());
  const bool movable = horizontalScrollBar()->maximum() > 0 || verticalScrollBar()->maximum() > 0;
  viewport()->setCursor(movable ? Qt::OpenHandCursor : Qt::ArrowCursor);
  viewport()->update();
}

void DocumentPageView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), background_);
  if (page_.IsEmpty()) {
    PaintHint(painter);
  } else {
    PaintPage(painter);
  }
}

void DocumentPageView::PaintHint(QPainter& painter) const {
  painter.setPen(background_.lightness() < kLightBackground ? Qt::white : Qt::black);
  const QRect place = viewport()->rect().adjusted(controls::kMargin, controls::kMargin,
                                                  -controls::kMargin, -controls::kMargin);
  painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

void DocumentPageView::PaintPage(QPainter& painter) const {
  const QSizeF shown = TurnedSize() * Factor();
  const auto middle = [](const QScrollBar& bar, double length, int room) {
    return length <= room ? room / 2.0 : length / 2 - bar.value();
  };
  const QPointF at(middle(*horizontalScrollBar(), shown.width(), viewport()->width()),
                   middle(*verticalScrollBar(), shown.height(), viewport()->height()));
  PaintAround(painter, at, page_, Factor(), quarter_turns_);
}

void DocumentPageView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  Arrange();
}

void DocumentPageView::mousePressEvent(QMouseEvent* event) {
  dragged_from_ = event->pos();
  if (viewport()->cursor().shape() == Qt::OpenHandCursor) {
    viewport()->setCursor(Qt::ClosedHandCursor);
  }
}

void DocumentPageView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint way = dragged_from_ - event->pos();
  dragged_from_ = event->pos();
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() + way.x());
  verticalScrollBar()->setValue(verticalScrollBar()->value() + way.y());
}

void DocumentPageView::mouseReleaseEvent(QMouseEvent* /*event*/) {
  Arrange();
}

}  // namespace quorvane::documents
