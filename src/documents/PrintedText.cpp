#include "documents/PrintedText.h"

#include <QDataStream>
#include <QIODevice>

#include <cmath>

namespace quorvane::documents {
namespace {

constexpr quint32 kMark = 0x51505458;        // what a written text begins with
constexpr qsizetype kLongestWord = 4096;     // bytes
constexpr double kLargestPlace = 1'000'000;  // points

bool IsPlausible(const PlacedWord& word, int pages) {
  const auto is_place = [](double place) { return std::abs(place) <= kLargestPlace; };
  return word.page >= 0 && word.page < pages && is_place(word.left) && is_place(word.right) &&
         is_place(word.top) && is_place(word.bottom);
}

}  // namespace

bool WriteText(const PrintedText& text, QIODevice& device) {
  QDataStream stream(&device);
  stream << kMark << qint32{text.pages} << static_cast<quint32>(text.words.size());
  for (const PlacedWord& word : text.words) {
    stream << qint32{word.page} << word.left << word.right << word.top << word.bottom
           << word.text.toUtf8().left(kLongestWord);
  }
  return stream.status() == QDataStream::Ok;
}

std::optional<PrintedText> TextOf(const QByteArray& bytes) {
  QDataStream stream(bytes);
  quint32 mark = 0;
  quint32 count = 0;
  PrintedText text;
  stream >> mark >> text.pages >> count;
  if (mark != kMark || text.pages < 0 || text.pages > PrintedText::kMostPages ||
      count > PrintedText::kMostWords) {
    return std::nullopt;
  }
  for (quint32 i = 0; i < count; ++i) {
    PlacedWord word;
    QByteArray utf8;
    stream >> word.page >> word.left >> word.right >> word.top >> word.bottom >> utf8;
    if (stream.status() != QDataStream::Ok || utf8.size() > kLongestWord ||
        !IsPlausible(word, text.pages)) {
      return std::nullopt;
    }
    word.text = QString::fromUtf8(utf8);
    text.words.push_back(std::move(word));
  }
  return text;
}

}  // namespace quorvane::documents
