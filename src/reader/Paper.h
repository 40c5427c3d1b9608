#pragma once

#include <QImage>
#include <QSizeF>

namespace quorvane::reader {

/// A white page of that size in device-independent pixels, 96 to the inch, in `dots` an inch; in
/// fewer when it would have more pixels than a page may.
QImage BlankPaper(const QSizeF& actual, int dots);

}  // namespace quorvane::reader
