#include "controls/ValueList.h"

#include <optional>
#include <utility>

namespace quorvane::controls {
namespace {

std::optional<lookups::Item> ReadItem(QStringView piece) {
  const qsizetype semicolon = piece.indexOf(QLatin1Char(';'));
  if (!piece.startsWith(QLatin1Char('#')) || semicolon < 0) {
    return std::nullopt;
  }
  bool is_number = false;
  const int id = piece.mid(1, semicolon - 1).toInt(&is_number);
  if (!is_number) {
    return std::nullopt;
  }
  QString text = piece.mid(semicolon + 1).toString();
  text.replace(lookups::kBarInText, QLatin1Char('|'));
  return lookups::Item{.id = id, .text = std::move(text)};
}

}  // namespace

ValueList::ValueList(const QString& list) {
  for (const QStringView piece : QStringView(list).split(QLatin1Char('|'), Qt::SkipEmptyParts)) {
    if (std::optional<lookups::Item> item = ReadItem(piece)) {
      texts_.insert(item->id, item->text);
      items_.push_back(std::move(*item));
    }
  }
}

}  // namespace quorvane::controls
