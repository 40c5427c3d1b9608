#pragma once

#include "documents/window/DocumentPage.h"

namespace quorvane::reader {

/// A page of a PDF document on white paper, in `dots` an inch as far as the bound of a page allows.
/// Throws std::runtime_error with a text for the user.
documents::DocumentPage ReadPdfPage(const QString& path, int number, int dots);

}  // namespace quorvane::reader
