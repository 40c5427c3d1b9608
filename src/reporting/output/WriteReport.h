#pragma once

#include "core/Progress.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/output/OutputFormat.h"

#include <QString>

namespace quorvane::reporting {

/// Writes the report into a file, whole or not at all: an older file of that name stays until the
/// new one is finished. Throws std::runtime_error with the file's name and the reason, or
/// Cancellation.
void WriteReport(const ReportDocument& document, OutputFormat format, const QString& path,
                 Progress& progress);

/// A file name (without folder and extension) made of words that may hold anything: what a file
/// system does not take is replaced, and nothing in it leads to another folder.
QString FileStem(const QStringList& words);

}  // namespace quorvane::reporting
