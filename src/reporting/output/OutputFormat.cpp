#include "reporting/output/OutputFormat.h"

#include <QtGlobal>

#include <algorithm>
#include <array>

namespace quorvane::reporting {
namespace {

constexpr std::array kFormats{
    OutputFormatEntry{OutputFormat::kText, "text", ".txt",
                      QT_TRANSLATE_NOOP("OutputFormat", "Text")},
    OutputFormatEntry{OutputFormat::kCsv, "csv", ".csv",
                      QT_TRANSLATE_NOOP("OutputFormat", "Comma separated values")},
    OutputFormatEntry{OutputFormat::kPdf, "pdf", ".pdf",
                      QT_TRANSLATE_NOOP("OutputFormat", "PDF document")},
    OutputFormatEntry{OutputFormat::kXlsx, "xlsx", ".xlsx",
                      QT_TRANSLATE_NOOP("OutputFormat", "Workbook")},
    OutputFormatEntry{OutputFormat::kRtf, "rtf", ".rtf",
                      QT_TRANSLATE_NOOP("OutputFormat", "Rich text document")},
};

}  // namespace

std::span<const OutputFormatEntry> OutputFormats() {
  return kFormats;
}

const OutputFormatEntry& EntryOf(OutputFormat format) {
  return kFormats[static_cast<std::size_t>(format)];
}

QString ExtensionOf(OutputFormat format) {
  return QLatin1String(EntryOf(format).extension);
}

std::optional<OutputFormat> FormatNamed(std::string_view name) {
  const auto found = std::ranges::find(
      kFormats, name, [](const OutputFormatEntry& entry) { return std::string_view(entry.name); });
  return found == kFormats.end() ? std::nullopt : std::optional(found->format);
}

}  // namespace quorvane::reporting
