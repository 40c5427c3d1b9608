#include "core/rates/IndexHeadline.h"

#include <QXmlStreamReader>

namespace quorvane::rates {
namespace {

// A feed has a handful of items; anything much larger is something else.
constexpr qsizetype kLargestFeed = 1 << 20;
constexpr qsizetype kLongestTitle = 400;

QString TitleOfItem(QXmlStreamReader& reader) {
  QString title;
  while (reader.readNextStartElement()) {
    if (reader.name() == QLatin1String("title")) {
      title = reader.readElementText(QXmlStreamReader::IncludeChildElements);
    } else {
      reader.skipCurrentElement();
    }
  }
  return title;
}

}  // namespace

std::optional<QString> HeadlineOf(const QByteArray& feed) {
  if (feed.size() > kLargestFeed) {
    return std::nullopt;
  }
  QXmlStreamReader reader(feed);
  QString last;
  while (!reader.atEnd()) {
    if (reader.readNext() == QXmlStreamReader::StartElement &&
        reader.name() == QLatin1String("item")) {
      const QString title = TitleOfItem(reader).simplified();
      last = title.isEmpty() ? last : title;
    }
  }
  if (reader.hasError() || !last.contains(QLatin1Char('*')) || last.size() > kLongestTitle) {
    return std::nullopt;
  }
  return QStringLiteral("BSE ") + last.replace(QLatin1Char('*'), QLatin1String("  +"));
}

}  // namespace quorvane::rates
