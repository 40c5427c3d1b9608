#pragma once

#include "core/Result.h"

#include <QString>

namespace quorvane::documents {

/// What a client's document is shown as.
enum class DocumentKind { kImage, kText, kPdf, kUnsupported };

/// By the extension of the file's name, in capital or small letters.
DocumentKind KindOf(const QString& file_name);

/// The text for a document that the program cannot show.
QString FormatNotSupported();

}  // namespace quorvane::documents
