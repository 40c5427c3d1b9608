#include "core/files/TableReaders.h"
#include "portfolio/trades/TradeFile.h"
#include "portfolio/trades/TradeIdentity.h"

#include <QCoreApplication>

using namespace quorvane;
using namespace quorvane::portfolio;

namespace {

const std::vector<TradeLayout>& ShippedLayouts() {
  static const std::vector<TradeLayout> kLayouts =
      ReadTradeLayouts(QStringLiteral(QUORVANE_DATA_FOLDER "/shipped/trades"));
  return kLayouts;
}

void Read(const files::TextTable& table, const FoundHeader& header) {
  const TradeReading reading{QStringLiteral("trades.csv"), "NSE", "10000001",
                             *text::MakeDate(26, 11, 2026)};
  ErrorList errors;
  Progress silent;
  TradeFile file = TradesIn(table, header, reading, errors, silent);
  TradeFile twice = file;
  twice.Append(std::move(file));
  twice.Sort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  static_cast<void>(ColumnMap::Parse(bytes));
  if (ScripInIdentity(bytes) && WithScrip(WithScrip(bytes, {}), "7") != WithScrip(bytes, "7")) {
    __builtin_trap();
  }
  try {
    const files::TextTable table = files::ReadCsvText(bytes);
    if (const auto header = FindHeader(table, ShippedLayouts())) {
      Read(table, *header);
    } else if (const auto guess = GuessHeader(table, ShippedLayouts())) {
      if (!WhatIsMissing(guess->map)) {
        Read(table, *guess);
      }
    }
  } catch (const files::TableError&) {
    // A refusal is what broken input gets.
  }
  return 0;
}
