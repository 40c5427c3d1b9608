#include "core/files/TableReaders.h"
#include "core/text/Tr.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <array>
#include <memory>

namespace quorvane::files {
namespace {

constexpr std::size_t kMostEntries = 2'000;

/// Unpacked to packed bytes; text tables reach about 20, zeros about 1,000.
constexpr std::size_t kLargestRatio = 200;
constexpr std::size_t kAnyRatio = std::size_t{1} << 20;  ///< bytes below which it does not matter

using Reader = std::unique_ptr<archive, decltype(&archive_read_free)>;

Reader Open(std::string_view bytes) {
  Reader reader(archive_read_new(), &archive_read_free);
  archive_read_support_format_zip_seekable(reader.get());
  if (archive_read_open_memory(reader.get(), bytes.data(), bytes.size()) != ARCHIVE_OK) {
    Fail(Tr("Files", "The archive cannot be read."));
  }
  return reader;
}

bool Climbs(const std::string& name) {
  if (name.empty() || name.front() == '/' || name.find('\\') != std::string::npos ||
      name.find(':') != std::string::npos || name.find('\0') != std::string::npos) {
    return true;
  }
  std::size_t start = 0;
  while (start <= name.size()) {
    const std::size_t end = std::min(name.find('/', start), name.size());
    if (name.substr(start, end - start) == "..") {
      return true;
    }
    start = end + 1;
  }
  return false;
}

std::string NameOf(archive_entry* entry) {
  const char* name = archive_entry_pathname_utf8(entry);
  name = name != nullptr ? name : archive_entry_pathname(entry);
  return name == nullptr ? std::string() : std::string(name);
}

/// Reads the current entry to its end, which also checks its sum.
std::string ContentOf(archive* reader, std::size_t room) {
  std::string content;
  std::array<char, 65536> block{};
  while (true) {
    const la_ssize_t read = archive_read_data(reader, block.data(), block.size());
    if (read == 0) {
      return content;
    }
    if (read < 0) {
      Fail(archive_read_has_encrypted_entries(reader) > 0
               ? Tr("Files", "The archive is locked by a password.")
               : Tr("Files", "The archive is damaged."));
    }
    if (content.size() + static_cast<std::size_t>(read) > room) {
      Fail(Tr("Files", "The archive unpacks to more than can be read."));
    }
    content.append(block.data(), static_cast<std::size_t>(read));
  }
}

}  // namespace

bool IsArchive(std::string_view bytes) {
  return bytes.starts_with("PK\x03\x04") || bytes.starts_with("PK\x05\x06");
}

std::vector<ArchiveEntry> ReadArchive(std::string_view bytes) {
  const Reader reader = Open(bytes);
  std::vector<ArchiveEntry> entries;
  std::size_t room = std::clamp(bytes.size() * kLargestRatio, kAnyRatio, kLargestUnpacked);
  archive_entry* entry = nullptr;
  while (true) {
    const int status = archive_read_next_header(reader.get(), &entry);
    if (status == ARCHIVE_EOF) {
      break;
    }
    if (status < ARCHIVE_WARN) {
      Fail(Tr("Files", "The archive is damaged."));
    }
    std::string name = NameOf(entry);
    if (Climbs(name)) {
      Fail(Tr("Files", "The archive holds a file outside its own folder."));
    }
    if (archive_entry_filetype(entry) == AE_IFDIR) {
      continue;
    }
    if (archive_entry_filetype(entry) != AE_IFREG || entries.size() >= kMostEntries) {
      Fail(Tr("Files", "The archive holds something else than files."));
    }
    std::string content = ContentOf(reader.get(), room);
    room -= content.size();
    if (IsArchive(content)) {
      Fail(Tr("Files", "The archive holds another archive."));
    }
    entries.push_back({std::move(name), std::move(content)});
  }
  return entries;
}

}  // namespace quorvane::files
