#pragma once

#include "core/platform/Processes.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>

namespace quorvane::documents {

/// The contents of a text document.
struct DocumentText {
  QString contents;
  bool is_html = false;
};

/// What reading a text may cost, and where the programs that convert it are.
struct TextLimits {
  std::int64_t most_bytes = 1'024'000;      ///< of the text, after conversion
  std::chrono::milliseconds longest{8000};  ///< of a conversion
  std::function<QString(const QString&)> find_program = platform::FindProgram;
};

/// Reads a document of kind kText. Rich text goes through "unrtf", a word processor's document
/// through "catdoc" or "antiword"; which of them it is follows from the contents, since both kinds
/// of file have either name. Throws std::runtime_error with a text for the user when that fails. It
/// can take seconds, and a bad text may make the converter crash: not to be called in the program
/// that has the windows.
DocumentText ReadDocumentText(const QString& path, const TextLimits& limits);

}  // namespace quorvane::documents
