#pragma once

#include "documents/PrintedText.h"
#include "documents/window/DocumentPage.h"

#include <QImage>
#include <QSizeF>

#include <optional>

namespace quorvane::reader {

/// A page of a picture, in its own pixels. Throws std::runtime_error with a text for the user.
documents::DocumentPage ReadPicturePage(const QString& path, int number);

/// Lets pictures be read as large as a colour scan of a page at 600 dots an inch, and no larger.
void BoundPictures();

/// True for a picture that is never read.
bool IsTooLarge(const QSize& picture);

/// A page of a PDF document on white paper, in `dots` an inch as far as the bound of a page allows.
/// Throws std::runtime_error with a text for the user.
documents::DocumentPage ReadPdfPage(const QString& path, int number, int dots);

/// The words of all pages of a PDF document; nullopt when the password does not open it. Throws
/// std::runtime_error with a text for the user.
std::optional<documents::PrintedText> ReadPdfText(const QString& path, const QByteArray& password);

/// A page of a text, rich text, HTML or word processor's document, set on A4 or on paper as wide as
/// its widest table. Nothing that the document names is fetched, neither from the network nor from
/// the disk. Throws std::runtime_error with a text for the user.
documents::DocumentPage ReadTextPage(const QString& path, int number, int dots);

/// A white page of that size in device-independent pixels, 96 to the inch, in `dots` an inch; in
/// fewer when it would have more pixels than a page may.
QImage BlankPaper(const QSizeF& actual, int dots);

}  // namespace quorvane::reader
