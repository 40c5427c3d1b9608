#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

class QIODevice;

namespace quorvane::documents {

/// A word on a page of a document, with the box around it in points from the top left corner.
struct PlacedWord {
  int page = 0;  ///< counted from 0
  double left = 0;
  double right = 0;
  double top = 0;
  double bottom = 0;
  QString text;
};

/// The words of all pages of a document, page by page.
struct PrintedText {
  static constexpr int kMostPages = 1000;
  static constexpr std::size_t kMostWords = 500'000;

  int pages = 0;
  std::vector<PlacedWord> words;

  /// True for a document that holds pictures of pages and no text.
  bool IsEmpty() const { return words.empty(); }
};

/// Writes the words as the reader program passes them on. False when the device does not take them.
bool WriteText(const PrintedText& text, QIODevice& device);

/// The words that were written; nullopt when the bytes are no text within the bounds.
std::optional<PrintedText> TextOf(const QByteArray& bytes);

}  // namespace quorvane::documents
