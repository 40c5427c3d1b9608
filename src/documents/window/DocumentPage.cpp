#include "documents/window/DocumentPage.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace quorvane::documents {
namespace {

constexpr int kSmallestLevel = 256;
constexpr quint32 kMark = 0x51505041;  // what a written page begins with
constexpr quint8 kMostLevels = 16;
constexpr qsizetype kLongestText = 100'000;  // letters
constexpr double kLargestSide = 100'000;     // device-independent pixels
constexpr qint64 kPixelBytes = 4;

struct Level {
  qint32 width = 0;
  qint32 height = 0;
  bool alpha = false;

  bool IsWithinBounds() const {
    return width > 0 && height > 0 &&
           static_cast<double>(width) * height <= DocumentPage::kMostPixels;
  }
  qint64 Bytes() const { return kPixelBytes * width * height; }
};

QImage::Format FormatFor(bool alpha) {
  return alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
}

/// An image of its own piece of the bytes, which are not copied.
QImage ImageAt(const QByteArray& bytes, qint64 at, const Level& level) {
  auto owner = std::make_unique<QByteArray>(bytes);
  const auto* pixels = reinterpret_cast<const uchar*>(owner->constData()) + at;
  return {pixels,
          level.width,
          level.height,
          static_cast<qsizetype>(kPixelBytes * level.width),
          FormatFor(level.alpha),
          [](void* owned) { delete static_cast<QByteArray*>(owned); },
          owner.release()};
}

bool IsPlausible(const DocumentPage& page) {
  const auto is_length = [](double length) { return length > 0 && length <= kLargestSide; };
  return is_length(page.actual.width()) && is_length(page.actual.height()) && page.number >= 0 &&
         page.number < page.count;
}

/// The levels' sizes; nullopt unless all are within the bounds.
std::optional<std::vector<Level>> ReadLevels(QDataStream& stream) {
  quint8 count = 0;
  stream >> count;
  if (count == 0 || count > kMostLevels) {
    return std::nullopt;
  }
  std::vector<Level> levels(count);
  for (Level& level : levels) {
    stream >> level.width >> level.height >> level.alpha;
    if (stream.status() != QDataStream::Ok || !level.IsWithinBounds()) {
      return std::nullopt;
    }
  }
  return levels;
}

}  // namespace

const QImage& DocumentPage::LevelFor(double width) const {
  const auto enough = [&](const QImage& level) { return level.width() >= width; };
  const auto found = std::find_if(levels.rbegin(), levels.rend(), enough);
  return found == levels.rend() ? levels.front() : *found;
}

DocumentPage MakePage(QImage image, const QSizeF& actual, int number, int count) {
  const double pixels = static_cast<double>(image.width()) * image.height();
  if (pixels > DocumentPage::kMostPixels) {
    const double factor = std::sqrt(DocumentPage::kMostPixels / pixels);
    const QSize size(std::max(1, static_cast<int>(image.width() * factor)),
                     std::max(1, static_cast<int>(image.height() * factor)));
    image = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  const QImage::Format format = FormatFor(image.hasAlphaChannel());
  DocumentPage page{.levels = {}, .actual = actual, .number = number, .count = count};
  page.levels.push_back(std::move(image).convertToFormat(format));
  while (std::min(page.levels.back().width(), page.levels.back().height()) > 2 * kSmallestLevel) {
    page.levels.push_back(page.levels.back().scaled(
        page.levels.back().size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
  return page;
}

bool WritePage(const DocumentPage& page, QIODevice& device) {
  QDataStream stream(&device);
  stream << kMark << page.actual.width() << page.actual.height() << qint32{page.number}
         << qint32{page.count} << page.text.left(kLongestText).toUtf8()
         << static_cast<quint8>(page.levels.size());
  for (const QImage& level : page.levels) {
    stream << qint32{level.width()} << qint32{level.height()} << level.hasAlphaChannel();
  }
  for (const QImage& level : page.levels) {
    const auto bytes = static_cast<int>(level.sizeInBytes());
    if (stream.writeRawData(reinterpret_cast<const char*>(level.constBits()), bytes) != bytes) {
      return false;
    }
  }
  return stream.status() == QDataStream::Ok;
}

std::optional<DocumentPage> PageOf(const QByteArray& bytes) {
  QDataStream stream(bytes);
  quint32 mark = 0;
  double width = 0;
  double height = 0;
  QByteArray text;
  DocumentPage page;
  stream >> mark >> width >> height >> page.number >> page.count >> text;
  page.actual = {width, height};
  page.text = QString::fromUtf8(text).left(kLongestText);
  const auto levels = ReadLevels(stream);
  if (mark != kMark || !levels || !IsPlausible(page)) {
    return std::nullopt;
  }
  qint64 at = stream.device()->pos();
  for (const Level& level : *levels) {
    if (at + level.Bytes() > bytes.size()) {
      return std::nullopt;
    }
    page.levels.push_back(ImageAt(bytes, at, level));
    at += level.Bytes();
  }
  return page;
}

}  // namespace quorvane::documents
