#include "reader/PicturePage.h"

#include "reader/Refuse.h"

#include <QImageReader>

#include <algorithm>

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

}  // namespace quorvane::reader
