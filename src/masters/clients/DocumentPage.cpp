#include "masters/clients/DocumentPage.h"

#include "masters/clients/DocumentKind.h"

#include <QCoreApplication>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QPdfDocument>

#include <algorithm>
#include <cmath>
#include <mutex>
#include <stdexcept>

namespace quorvane::clients {
namespace {

constexpr double kPoint = 96.0 / 72.0;  // device-independent pixels
constexpr double kSharpness = 2.0;      // pixels rendered for each of them
constexpr double kMostPixels = 24e6;    // of a rendered page
constexpr int kMostMegabytes = 256;     // of a picture in memory
constexpr qint64 kPdfHeader = 1024;     // bytes within which the signature stands
constexpr int kSmallestLevel = 256;

[[noreturn]] void Fail(const char* text) {
  throw std::runtime_error(QCoreApplication::translate("Clients", text).toStdString());
}

std::vector<QImage> LevelsOf(const QImage& image) {
  std::vector<QImage> levels{image.convertToFormat(
      image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32)};
  while (std::min(levels.back().width(), levels.back().height()) > 2 * kSmallestLevel) {
    levels.push_back(levels.back().scaled(levels.back().size() / 2, Qt::IgnoreAspectRatio,
                                          Qt::SmoothTransformation));
  }
  return levels;
}

bool IsTooLarge(const QSize& size) {
  const double bytes = 4.0 * size.width() * size.height();
  return size.isValid() && bytes > kMostMegabytes * 1024.0 * 1024.0;
}

/// A colour scan of a page at 600 dots an inch is larger than what is allowed by default.
void AllowLargeScans() {
  static std::once_flag once;
  std::call_once(once, [] { QImageReader::setAllocationLimit(kMostMegabytes); });
}

bool HasPluginFor(const QString& path) {
  const QString extension = path.section(QLatin1Char('.'), -1).toLower();
  return QImageReader::supportedImageFormats().contains(extension.toLatin1());
}

DocumentPage ReadImage(const QString& path, int number) {
  AllowLargeScans();
  QImageReader reader(path);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (!reader.canRead() && !HasPluginFor(path)) {
    Fail(QT_TRANSLATE_NOOP("Clients", "Could not create Image Viewer Object."));
  }
  // Of a moving picture the first image is the document.
  const int count = reader.supportsAnimation() ? 1 : std::max(1, reader.imageCount());
  if (number > 0) {
    reader.jumpToImage(number);
  }
  if (IsTooLarge(reader.size())) {
    Fail(QT_TRANSLATE_NOOP("Clients", "The Document is too Large to be Shown."));
  }
  const QImage image = reader.read();
  if (image.isNull()) {
    Fail(QT_TRANSLATE_NOOP("Clients", "The Image is Broken."));
  }
  return {.levels = LevelsOf(image), .actual = image.size(), .number = number, .count = count};
}

bool BeginsAsPdf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) && file.read(kPdfHeader).contains("%PDF-");
}

void Load(QPdfDocument& document, const QString& path) {
  if (!BeginsAsPdf(path)) {
    Fail(QT_TRANSLATE_NOOP("Clients", "The PDF Document is Broken."));
  }
  switch (document.load(path)) {
    case QPdfDocument::Error::None:
      return;
    case QPdfDocument::Error::IncorrectPassword:
    case QPdfDocument::Error::UnsupportedSecurityScheme:
      Fail(QT_TRANSLATE_NOOP("Clients", "The PDF Document is Protected by a Password."));
    case QPdfDocument::Error::FileNotFound:
      Fail(QT_TRANSLATE_NOOP("Clients", "File does not Exist."));
    case QPdfDocument::Error::InvalidFileFormat:
      Fail(QT_TRANSLATE_NOOP("Clients", "The PDF Document is Broken."));
    default:
      Fail(QT_TRANSLATE_NOOP("Clients", "Could not create PDF Object."));
  }
}

DocumentPage ReadPdf(const QString& path, int number) {
  QPdfDocument document;
  Load(document, path);
  const QSizeF actual = document.pagePointSize(number) * kPoint;
  if (document.pageCount() <= number || actual.isEmpty()) {
    Fail(QT_TRANSLATE_NOOP("Clients", "The PDF Document is Broken."));
  }
  const double pixels = actual.width() * actual.height() * kSharpness * kSharpness;
  const double sharpness = kSharpness * std::min(1.0, std::sqrt(kMostPixels / pixels));
  const QSize size = (actual * sharpness).toSize().expandedTo({1, 1});
  QImage paper(size, QImage::Format_RGB32);
  paper.fill(Qt::white);
  const QImage ink = document.render(number, size);
  if (ink.isNull()) {
    Fail(QT_TRANSLATE_NOOP("Clients", "The PDF Document is Broken."));
  }
  QPainter(&paper).drawImage(0, 0, ink);
  return {
      .levels = LevelsOf(paper), .actual = actual, .number = number, .count = document.pageCount()};
}

}  // namespace

const QImage& DocumentPage::LevelFor(double width) const {
  const auto enough = [&](const QImage& level) { return level.width() >= width; };
  const auto found = std::find_if(levels.rbegin(), levels.rend(), enough);
  return found == levels.rend() ? levels.front() : *found;
}

DocumentPage ReadDocumentPage(const QString& path, int number) {
  return KindOf(path) == DocumentKind::kPdf ? ReadPdf(path, number) : ReadImage(path, number);
}

}  // namespace quorvane::clients
