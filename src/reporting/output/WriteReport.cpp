#include "reporting/output/WriteReport.h"

#include "core/platform/PrivateFile.h"

#include <QSaveFile>
#include <QtGlobal>

#include <algorithm>
#include <array>
#include <stdexcept>

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

constexpr qsizetype kLongestStem = 180;  // bytes; file systems take 255

[[noreturn]] void Fail(const QSaveFile& file) {
  throw std::runtime_error("cannot write " + file.fileName().toStdString() + ": " +
                           file.errorString().toStdString());
}

void WriteText(const std::string& text, QSaveFile& file) {
  const auto size = static_cast<qint64>(text.size());
  if (file.write(text.data(), size) != size) {
    Fail(file);
  }
}

void WriteTo(const ReportDocument& document, OutputFormat format, QSaveFile& file,
             Progress& progress) {
  switch (format) {
    case OutputFormat::kText:
      return WriteText(WriteText(document), file);
    case OutputFormat::kCsv:
      return WriteText(WriteCsv(document), file);
    case OutputFormat::kRtf:
      return WriteText(WriteRtf(document, progress), file);
    case OutputFormat::kXlsx:
      return WriteXlsx(document, file, progress);
    case OutputFormat::kPdf:
      return WritePdf(document, file, progress);
  }
}

bool IsPlain(QChar c) {
  return c.unicode() >= ' ' && !QStringView(u"/\\:*?\"<>|").contains(c);
}

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

void WriteReport(const ReportDocument& document, OutputFormat format, const QString& path,
                 Progress& progress) {
  QSaveFile file(path);
  platform::OpenPrivate(file);
  WriteTo(document, format, file, progress);
  progress.ThrowIfCancelled();
  platform::Commit(file);
}

QString FileStem(const QStringList& words) {
  QString stem = words.join(QLatin1Char(' ')).simplified();
  for (QChar& c : stem) {
    if (!IsPlain(c)) {
      c = QLatin1Char('_');
    }
  }
  while (stem.toUtf8().size() > kLongestStem) {
    stem.chop(1);
  }
  stem = stem.trimmed();
  while (stem.endsWith(QLatin1Char('.'))) {
    stem.chop(1);
  }
  return stem.isEmpty() || stem.startsWith(QLatin1Char('.')) ? QLatin1Char('_') + stem : stem;
}

}  // namespace quorvane::reporting
