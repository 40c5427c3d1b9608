#pragma once

#include <QPdfLink>
#include <QPdfView>

#include <optional>

namespace quorvane::reporting {

/// Pages of a document one below the other, with a place marked on one of them.
class PagesView : public QPdfView {
  Q_OBJECT

 public:
  explicit PagesView(QWidget* parent = nullptr);

  /// The page at the top of the view, counted from 0; GoTo shows another one.
  int CurrentPage() const;
  void GoTo(int page);

  /// The zoom in force, in any mode; 1 is the pages' own size.
  double Zoom() const;
  void SetZoom(double zoom);

  /// Marks a place that was found and scrolls to it; nullopt removes the mark.
  void Mark(const std::optional<QPdfLink>& place);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  double PixelsAPoint() const;
  QRectF AreaOf(int page) const;  ///< in the coordinates of all pages together

  std::optional<QPdfLink> mark_;
};

}  // namespace quorvane::reporting
