#include "documents/window/DocumentPage.h"
#include "reader/Pages.h"
#include "reader/Refuse.h"

#include <QImageReader>

#include <algorithm>
#include <cmath>
#include <new>

namespace quorvane::reader {
namespace {

constexpr int kMostMegabytes = 256;  // of a picture in memory

bool HasPluginFor(const QString& path) {
  const QString extension = path.section(QLatin1Char('.'), -1).toLower();
  return QImageReader::supportedImageFormats().contains(extension.toLatin1());
}

}  // namespace

void BoundPictures() {
  QImageReader::setAllocationLimit(kMostMegabytes);
}

bool IsTooLarge(const QSize& picture) {
  const double bytes = 4.0 * picture.width() * picture.height();
  return picture.isValid() && bytes > kMostMegabytes * 1024.0 * 1024.0;
}

documents::DocumentPage ReadPicturePage(const QString& path, int number) {
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (!reader.canRead() && !HasPluginFor(path)) {
    Refuse(QT_TRANSLATE_NOOP("Clients", "Could not create Image Viewer Object."));
  }
  // Of a moving picture the first image is the document.
  const int count = reader.supportsAnimation() ? 1 : std::max(1, reader.imageCount());
  if (number > 0) {
    reader.jumpToImage(number);
  }
  if (IsTooLarge(reader.size())) {
    RefuseTooLarge();
  }
  QImage image = reader.read();
  if (image.isNull()) {
    Refuse(QT_TRANSLATE_NOOP("Clients", "The Image is Broken."));
  }
  const QSizeF actual = image.size();
  return documents::MakePage(std::move(image), actual, number, count);
}

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
