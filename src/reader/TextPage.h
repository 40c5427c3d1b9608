#pragma once

#include "documents/window/DocumentPage.h"

namespace quorvane::reader {

/// A page of a text, rich text, HTML or word processor's document, set on A4 or on paper as wide as
/// its widest table. Nothing that the document names is fetched, neither from the network nor from
/// the disk. Throws std::runtime_error with a text for the user.
documents::DocumentPage ReadTextPage(const QString& path, int number, int dots);

}  // namespace quorvane::reader
