#include "core/files/JsonTable.h"
#include "core/files/TableReaders.h"
#include "transactions/corporate_actions/ActionFile.h"

using namespace quorvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  try {
    static_cast<void>(corporate_actions::ReadActionTable(
        files::IsJson(bytes) ? files::ReadJsonTable(bytes) : files::ReadCsvText(bytes)));
  } catch (const files::TableError&) {
    // A refusal is what broken input gets.
  }
  corporate_actions::ReadPurpose(
      QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())));
  return 0;
}
