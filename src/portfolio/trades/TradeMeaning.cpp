#include "portfolio/trades/TradeMeaning.h"

#include "core/text/Tr.h"

#include <algorithm>

namespace quorvane::portfolio {
namespace {

struct MeaningWords {
  std::string_view word;
  const char* text;
};

constexpr std::array<MeaningWords, kMeanings> kWords{{
    {"date", QT_TRANSLATE_NOOP("Trades", "Date")},
    {"time", QT_TRANSLATE_NOOP("Trades", "Time")},
    {"side", QT_TRANSLATE_NOOP("Trades", "Purchase or Sale")},
    {"quantity", QT_TRANSLATE_NOOP("Trades", "Quantity")},
    {"price", QT_TRANSLATE_NOOP("Trades", "Price")},
    {"value", QT_TRANSLATE_NOOP("Trades", "Value")},
    {"buy_price", QT_TRANSLATE_NOOP("Trades", "Price of Purchases")},
    {"sell_price", QT_TRANSLATE_NOOP("Trades", "Price of Sales")},
    {"buy_quantity", QT_TRANSLATE_NOOP("Trades", "Quantity Bought")},
    {"buy_value", QT_TRANSLATE_NOOP("Trades", "Value Bought")},
    {"sell_quantity", QT_TRANSLATE_NOOP("Trades", "Quantity Sold")},
    {"sell_value", QT_TRANSLATE_NOOP("Trades", "Value Sold")},
    {"symbol", QT_TRANSLATE_NOOP("Trades", "Symbol (NSE)")},
    {"isin", QT_TRANSLATE_NOOP("Trades", "ISIN")},
    {"name", QT_TRANSLATE_NOOP("Trades", "Script Name")},
    {"code", QT_TRANSLATE_NOOP("Trades", "Script Code (BSE)")},
    {"token", QT_TRANSLATE_NOOP("Trades", "Token of the Exchange")},
    {"own_code", QT_TRANSLATE_NOOP("Trades", "The Broker's Own Code")},
    {"exchange", QT_TRANSLATE_NOOP("Trades", "Exchange")},
    {"segment", QT_TRANSLATE_NOOP("Trades", "Segment")},
    {"series", QT_TRANSLATE_NOOP("Trades", "Series")},
    {"trade_number", QT_TRANSLATE_NOOP("Trades", "Trade No.")},
    {"order_number", QT_TRANSLATE_NOOP("Trades", "Order No.")},
    {"bill_number", QT_TRANSLATE_NOOP("Trades", "Bill No.")},
    {"settlement", QT_TRANSLATE_NOOP("Trades", "Settlement No.")},
    {"account", QT_TRANSLATE_NOOP("Trades", "Demat Account")},
    {"brokerage", QT_TRANSLATE_NOOP("Trades", "Brokerage")},
    {"brokerage_each", QT_TRANSLATE_NOOP("Trades", "Brokerage a Share")},
    {"brokerage_taxed", QT_TRANSLATE_NOOP("Trades", "Brokerage with Tax")},
    {"all_charges", QT_TRANSLATE_NOOP("Trades", "All Charges in One Sum")},
    {"tax", QT_TRANSLATE_NOOP("Trades", "Goods and Services Tax")},
    {"stt", QT_TRANSLATE_NOOP("Trades", "S.T.T.")},
    {"exchange_fee", QT_TRANSLATE_NOOP("Trades", "Exchange Charges")},
    {"sebi_fee", QT_TRANSLATE_NOOP("Trades", "SEBI Fee")},
    {"stamp_duty", QT_TRANSLATE_NOOP("Trades", "Stamp Duty")},
    {"other_charges", QT_TRANSLATE_NOOP("Trades", "Other Charges")},
    {"taxes", QT_TRANSLATE_NOOP("Trades", "All Charges but Brokerage")},
}};

}  // namespace

std::string_view WordOf(Meaning meaning) {
  return kWords[PlaceOf(meaning)].word;
}

std::optional<Meaning> MeaningOf(std::string_view word) {
  const auto* found = std::ranges::find(kWords, word, &MeaningWords::word);
  return found == kWords.end()
             ? std::nullopt
             : std::optional(static_cast<Meaning>(std::distance(kWords.begin(), found)));
}

QString TextOf(Meaning meaning) {
  return Tr("Trades", kWords[PlaceOf(meaning)].text);
}

}  // namespace quorvane::portfolio
