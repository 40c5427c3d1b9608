#include "core/files/TableReaders.h"

#include <functional>

using namespace quorvane;

namespace {

void Try(const std::function<void()>& read) {
  try {
    read();
  } catch (const files::TableError&) {
    // A refusal is what broken input gets.
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string xml(reinterpret_cast<const char*>(data), size);
  const std::vector<files::ArchiveEntry> ods{{"content.xml", xml}};
  const std::vector<files::ArchiveEntry> xlsx{
      {"xl/workbook.xml", "<workbook><sheet r:id=\"a\"/></workbook>"},
      {"xl/_rels/workbook.xml.rels", "<a><Relationship Id=\"a\" Target=\"sheet.xml\"/></a>"},
      {"xl/sharedStrings.xml", "<sst><si><t>A</t></si></sst>"},
      {"xl/sheet.xml", xml}};
  Try([&] { files::ReadOds(ods); });
  Try([&] { files::ReadXlsx(xlsx); });
  return 0;
}
