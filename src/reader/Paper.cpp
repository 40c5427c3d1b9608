#include "reader/Paper.h"

#include "documents/window/DocumentPage.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace quorvane::reader {

QImage BlankPaper(const QSizeF& actual, int dots) {
  constexpr double kInch = 96;
  const double sharpness = dots / kInch;
  const double pixels = actual.width() * actual.height() * sharpness * sharpness;
  const double factor =
      sharpness * std::min(1.0, std::sqrt(documents::DocumentPage::kMostPixels / pixels));
  const QSize size(static_cast<int>(actual.width() * factor),
                   static_cast<int>(actual.height() * factor));
  QImage paper(size.expandedTo({1, 1}), QImage::Format_RGB32);
  if (paper.isNull()) {
    throw std::bad_alloc();
  }
  paper.fill(Qt::white);
  return paper;
}

}  // namespace quorvane::reader
