#pragma once

#include "core/files/TextTable.h"

namespace quorvane::files {

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

}  // namespace quorvane::files
