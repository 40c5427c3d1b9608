#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "documents/DocumentReading.h"
#include "documents/PrintedText.h"

#include <QString>
#include <QStringList>

namespace quorvane::documents {

/// What reading the text of a whole document may cost.
ReadingLimits TextLimits();

/// The words of a PDF document, read by the reader program. The passwords are tried in their order,
/// after none; they reach the reader by a pipe. Events are served until it is done, but no input
/// of the user. Refused with Field::kPassword when no password opens the document, and
/// with Field::kNone for one that is broken, too large or without any text. Throws Cancellation.
Result<PrintedText> ReadPdfText(const QString& path, const QStringList& passwords,
                                Progress& progress, const ReadingLimits& limits = TextLimits());

}  // namespace quorvane::documents
