#include "Printed.h"
#include "core/files/TableReaders.h"
#include "portfolio/reconcile/StatementLines.h"

using namespace quorvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  reconcile::ReadStatementLines(paper::LinesOf(bytes));
  reconcile::ReadStatementLines(paper::LinesOf(PrintedOf(bytes)));
  try {
    reconcile::ReadStatementTable(files::ReadCsvText(bytes));
  } catch (const files::TableError&) {
    // A refusal is what broken input gets.
  }
  return 0;
}
