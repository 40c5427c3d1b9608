#pragma once

#include <QImage>
#include <QSizeF>
#include <QString>

#include <optional>
#include <vector>

class QIODevice;

namespace quorvane::documents {

/// A page of a picture, of a PDF document or of a text, ready to be painted.
struct DocumentPage {
  static constexpr double kMostPixels = 24e6;  ///< of the page in full

  std::vector<QImage> levels;  ///< the page in full, then halved again and again
  QSizeF actual;               ///< its size as it is, in device-independent pixels
  int number = 0;              ///< counted from 0
  int count = 0;               ///< of the document's pages
  QString text = {};           ///< on it, as far as it is known; its start when long

  bool IsEmpty() const { return levels.empty(); }

  /// The smallest level that still has at least that many pixels in a row.
  const QImage& LevelFor(double width) const;
};

/// A page of one image, which is made smaller beyond kMostPixels, with its levels. Takes a while
/// for a large one: not for the thread of the windows.
DocumentPage MakePage(QImage image, const QSizeF& actual, int number, int count);

/// Writes a page as the reader program passes it on. False when the device does not take it.
bool WritePage(const DocumentPage& page, QIODevice& device);

/// The page that was written; nullopt when the bytes are no page within the bounds.
std::optional<DocumentPage> PageOf(const QByteArray& bytes);

}  // namespace quorvane::documents
