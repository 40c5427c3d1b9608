#pragma once

#include "documents/window/DocumentPage.h"

#include <QAbstractScrollArea>
#include <QColor>
#include <QTransform>

namespace quorvane::documents {

/// Paints a page: fitted into the pane or in its actual size, turned by quarters, on a background
/// of any colour. In actual size it is scrolled by bars, wheel, arrow keys and dragging. The text
/// on the page can be copied.
class DocumentPageView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  enum class View { kFit, kActual };

  explicit DocumentPageView(QWidget* parent = nullptr);

  void Show(DocumentPage page);

  /// Shows no page, but a line of text.
  void Clear(const QString& hint);

  const DocumentPage& Page() const { return page_; }

  void Rotate90();
  void Straighten();
  int QuarterTurns() const { return quarter_turns_; }  ///< clockwise, 0 to 3

  void SetView(View view);
  View CurrentView() const { return view_; }

  void SetBackgroundColor(const QColor& color);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  QSizeF TurnedSize() const;
  double Factor() const;
  void Arrange();
  void CopyText() const;
  void PaintHint(QPainter& painter) const;
  void PaintPage(QPainter& painter) const;

  DocumentPage page_;
  QString hint_;
  QColor background_;
  View view_ = View::kFit;
  int quarter_turns_ = 0;
  QPoint dragged_from_;
  QAction* copy_;
};

/// Paints a page into a rectangle, as large as it fits, turned clockwise by quarters.
void PaintPageInto(QPainter& painter, const QRectF& place, const DocumentPage& page,
                   int quarter_turns);

}  // namespace quorvane::documents
