#pragma once

#include "core/Result.h"

#include <QString>

namespace quorvane::documents {

/// What shows a client's document.
enum class DocumentKind { kImage, kText, kPdf, kUnsupported };

/// By the extension of the file's name, in capital or small letters.
DocumentKind KindOf(const QString& file_name);

/// Said about a document that nothing shows.
QString FormatNotSupported();

}  // namespace quorvane::documents
