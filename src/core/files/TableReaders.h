#pragma once

#include "core/files/TextTable.h"

#include <span>
#include <string>
#include <string_view>

namespace quorvane::files {

/// A file in a zip archive.
struct ArchiveEntry {
  std::string name;  ///< with its folders, as the archive writes it
  std::string content;
};

/// The files in a zip archive, in its order, each read to its end and checked. Throws TableError
/// for what is no whole zip archive, an encrypted one, one with a name that leads out of its
/// folder, with an archive inside, with too many files, or one that unpacks to more than
/// kLargestUnpacked.
std::vector<ArchiveEntry> ReadArchive(std::string_view bytes);

/// True when the bytes begin as a zip archive does, workbooks in the form of one included.
bool IsArchive(std::string_view bytes);

/// The readers of one form of file each; ReadTableFile chooses among them. Each throws TableError
/// for what is not of its form. Of several sheets they read the first with contents, of a formula
/// its last result.

/// Reads comma separated text in UTF-8, UTF-16 with a byte order mark, or Latin-1. Entities of
/// markup that exchanges leave in names ("&amp;", "&#38;") are turned into their characters. Throws
/// TableError with the line for what is no such text, and for a web page in its place.
TextTable ReadCsvText(std::string_view bytes);

/// An .xls workbook as programs since 1997 write it; a date is the days since 30 December 1899.
TextTable ReadXlsWorkbook(std::string_view bytes);

/// An .xlsx workbook; a date is the days since 30 December 1899.
TextTable ReadXlsx(std::span<const ArchiveEntry> parts);

/// An .ods workbook; a date is "yyyy-mm-dd", with a time behind midnight "yyyy-mm-ddThh:mm:ss".
TextTable ReadOds(std::span<const ArchiveEntry> parts);

/// The part of that name; nullptr when there is none.
const ArchiveEntry* FindPart(std::span<const ArchiveEntry> parts, std::string_view name);

/// A number as workbooks write it ("961.14999999999998") in its shortest form ("961.15"); any other
/// text unchanged.
std::string ShortNumber(const std::string& text);

}  // namespace quorvane::files
