#include "controls/WindowMemory.h"

#include "core/app/Ini.h"

#include <QDebug>

#include <algorithm>
#include <exception>

namespace quorvane::controls {
namespace {

const QString kPlace = QStringLiteral("Place");
constexpr int kPlaceNumbers = 4;

// A window opens and closes also where its place cannot be kept, as on a full disk.
template <class Work>
void Try(const Work& work) {
  try {
    work();
  } catch (const std::exception& error) {
    qWarning() << "Windows.ini:" << error.what();
  }
}

}  // namespace

WindowMemory::WindowMemory(const app::Folders& folders)
    : path_(folders.application.isEmpty() ? QString()
                                          : folders.application + QStringLiteral("/Windows.ini")) {}

QString WindowMemory::Text(const QString& window, const QString& key) const {
  QString text;
  if (!path_.isEmpty()) {
    Try([&] { text = app::IniFile(path_).Read(window, key); });
  }
  return text;
}

void WindowMemory::Keep(const QString& window, const QString& key, const QString& text) const {
  if (!path_.isEmpty() && Text(window, key) != text) {
    Try([&] { app::IniFile(path_).Write(window, key, text); });
  }
}

QList<int> WindowMemory::Numbers(const QString& window, const QString& key) const {
  QList<int> numbers;
  for (const QString& word : Text(window, key).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
    bool whole = false;
    numbers << word.toInt(&whole);
    if (!whole) {
      return {};
    }
  }
  return numbers;
}

void WindowMemory::KeepNumbers(const QString& window, const QString& key,
                               const QList<int>& numbers) const {
  QStringList words;
  for (const int number : numbers) {
    words << QString::number(number);
  }
  Keep(window, key, words.join(QLatin1Char(',')));
}

std::optional<QRect> WindowMemory::Place(const QString& window) const {
  const QList<int> numbers = Numbers(window, kPlace);
  if (numbers.size() != kPlaceNumbers || numbers[2] <= 0 || numbers[3] <= 0) {
    return std::nullopt;
  }
  return QRect(numbers[0], numbers[1], numbers[2], numbers[3]);
}

void WindowMemory::KeepPlace(const QString& window, const QRect& place) const {
  KeepNumbers(window, kPlace, {place.x(), place.y(), place.width(), place.height()});
}

QRect Inside(const QRect& place, const QRect& within) {
  QRect inside(place.topLeft(), place.size().boundedTo(within.size()));
  inside.moveLeft(std::clamp(inside.left(), within.left(), within.right() + 1 - inside.width()));
  inside.moveTop(std::clamp(inside.top(), within.top(), within.bottom() + 1 - inside.height()));
  return inside;
}

}  // namespace quorvane::controls
