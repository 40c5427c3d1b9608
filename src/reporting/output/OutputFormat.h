#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quorvane::reporting {

/// The kinds of file that a report is written as.
enum class OutputFormat : std::uint8_t { kText, kCsv, kPdf, kXlsx, kRtf };

struct OutputFormatEntry {
  OutputFormat format = OutputFormat::kText;
  const char* name = "";         ///< as on the command line ("pdf")
  const char* extension = "";    ///< of the file (".pdf")
  const char* description = "";  ///< as in a list of file types ("PDF document")
};

/// Every format, in the order of the enumeration.
std::span<const OutputFormatEntry> OutputFormats();
const OutputFormatEntry& EntryOf(OutputFormat format);

/// ".pdf".
QString ExtensionOf(OutputFormat format);

/// Finds a format by its name; nullopt for another word.
std::optional<OutputFormat> FormatNamed(std::string_view name);

}  // namespace quorvane::reporting
