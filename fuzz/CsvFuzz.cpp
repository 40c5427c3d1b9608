#include "core/files/TableReaders.h"
#include "core/rates/PriceFile.h"
#include "core/rates/PriceText.h"

#include <QByteArray>

using namespace quorvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  try {
    static_cast<void>(rates::ReadPriceTable(files::ReadCsvText(bytes)));
  } catch (const files::TableError&) {
    // A refusal is what broken input gets.
  }
  const QByteArray text(bytes.data(), static_cast<qsizetype>(size));
  rates::ClosingPriceIn(text, *text::MakeDate(31, 1, 2018));
  rates::BseQuoteIn(text);
  rates::NseQuoteIn(text);
  return 0;
}
