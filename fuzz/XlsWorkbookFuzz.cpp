#include "core/files/TableReaders.h"

using namespace quorvane;
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    files::ReadXlsWorkbook({reinterpret_cast<const char*>(data), size});
  } catch (const files::TableError&) {
    // A refusal is what broken input gets.
  }
  return 0;
}
