#include "core/files/HtmlDocument.h"
#include "core/rates/PriceText.h"

using namespace quorvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view html(reinterpret_cast<const char*>(data), size);
  rates::PriceFile movers;
  rates::AddMovers(html, movers);
  const files::HtmlDocument page(html);
  page.Links();
  page.LinkAt("tdNext0");
  try {
    page.Rows();
  } catch (const files::TableError&) {
    // A refusal is what broken input gets.
  }
  return 0;
}
