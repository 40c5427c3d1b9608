#pragma once

#include "documents/window/DocumentPage.h"

namespace quorvane::reader {

/// A page of a picture, in its own pixels. Throws std::runtime_error with a text for the user.
documents::DocumentPage ReadPicturePage(const QString& path, int number);

/// Lets pictures be read as large as a colour scan of a page at 600 dots an inch, and no larger.
void BoundPictures();

/// True for a picture that is never read.
bool IsTooLarge(const QSize& picture);

}  // namespace quorvane::reader
