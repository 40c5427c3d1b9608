#pragma once

#include <QImage>
#include <QSizeF>
#include <QString>

#include <vector>

namespace quorvane::clients {

/// A page of a picture or of a PDF document, ready to be painted.
struct DocumentPage {
  std::vector<QImage> levels;  ///< the page in full, then halved again and again
  QSizeF actual;               ///< its size as it is, in device-independent pixels
  int number = 0;              ///< counted from 0
  int count = 0;               ///< of the document's pages

  bool IsEmpty() const { return levels.empty(); }

  /// The smallest level that still has at least that many pixels in a row.
  const QImage& LevelFor(double width) const;
};

/// Reads one page. Throws std::runtime_error with a text for the user. A large scan takes a while:
/// not for the thread of the windows.
DocumentPage ReadDocumentPage(const QString& path, int number);

}  // namespace quorvane::clients
