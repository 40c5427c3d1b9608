#pragma once

#include "core/Progress.h"
#include "reporting/document/ReportDocument.h"

#include <QIODevice>
#include <QString>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
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

/// Writes the report into a file, whole or not at all: an older file of that name stays until the
/// new one is finished. Throws std::runtime_error with the file's name and the reason, or
/// Cancellation.
void WriteReport(const ReportDocument& document, OutputFormat format, const QString& path,
                 Progress& progress);

/// A file name (without folder and extension) made of words that may hold anything: what a file
/// system does not take is replaced, and nothing in it leads to another folder.
QString FileStem(const QStringList& words);

/// The report as plain text in columns, for a terminal or a text file: UTF-8, lines ended by LF.
std::string WriteText(const ReportDocument& document);

/// The report as comma separated values for a spreadsheet or a program: UTF-8, RFC 4180 quoting,
/// lines ended by LF. Titles, groups and notes are records of one field; each table begins with its
/// headings, in which the heading of a column's group comes first ("Sale Date"). Numbers are
/// written as their mask shows them, without thousands separators. A text that a spreadsheet would
/// take for a formula ("=1+1", "@name", a leading tab) gets an apostrophe before it; one that is a
/// number ("-12.50") stays as it is.
std::string WriteCsv(const ReportDocument& document);

/// The report as rich text with tables, which every word processor opens: A4, page numbers, the
/// headings repeated on each page. Pure ASCII; other letters are written as escapes.
std::string WriteRtf(const ReportDocument& document, Progress& progress);

/// The report as a workbook of one sheet: numbers and dates as values with their number formats,
/// titles merged and centred over the columns, bold headings and totals, borders, fitted columns,
/// and the sheet set up for printing. Throws std::runtime_error or Cancellation.
void WriteXlsx(const ReportDocument& document, QIODevice& out, Progress& progress);

/// The report laid out on A4 pages: what is previewed, printed and saved. Portrait or landscape by
/// what fits, columns fitted to their contents, headings and a page number on each page, no group
/// heading alone at the end of a page. Texts in any script. Throws std::runtime_error or
/// Cancellation.
void WritePdf(const ReportDocument& document, QIODevice& out, Progress& progress);

}  // namespace quorvane::reporting
