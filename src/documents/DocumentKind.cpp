#include "documents/DocumentKind.h"

#include "core/text/Tr.h"

#include <QFileInfo>
#include <QStringList>

namespace quorvane::documents {

DocumentKind KindOf(const QString& file_name) {
  static const QStringList kImages{"BMP", "GIF", "JPG", "TIF", "JPEG"};
  static const QStringList kTexts{"RTF", "DOC", "TXT", "HTM", "HTML"};
  const QString extension = QFileInfo(file_name).suffix().toUpper();
  if (kImages.contains(extension)) {
    return DocumentKind::kImage;
  }
  if (kTexts.contains(extension)) {
    return DocumentKind::kText;
  }
  return extension == QStringLiteral("PDF") ? DocumentKind::kPdf : DocumentKind::kUnsupported;
}

QString FormatNotSupported() {
  return Tr("Clients", "Format Not Supported.");
}

}  // namespace quorvane::documents
