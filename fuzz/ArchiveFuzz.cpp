#include "core/files/TableReaders.h"

using namespace quorvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const std::vector<files::ArchiveEntry> entries =
        files::ReadArchive({reinterpret_cast<const char*>(data), size});
    if (files::FindPart(entries, "content.xml") != nullptr) {
      files::ReadOds(entries);
    } else {
      files::ReadXlsx(entries);
    }
  } catch (const files::TableError&) {
    // A refusal is what broken input gets.
  }
  return 0;
}
