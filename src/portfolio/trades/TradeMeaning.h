#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quorvane::portfolio {

/// What a column of a broker's file means. Charges come last; of these several columns may have one
/// meaning and are added up.
enum class Meaning : std::uint8_t {
  kDate,
  kTime,
  kSide,
  kQuantity,
  kPrice,
  kValue,        ///< quantity at the price, in rupees
  kBuyPrice,     ///< filled in purchases alone
  kSellPrice,    ///< filled in sales alone
  kBuyQuantity,  ///< of a row that has a purchase and a sale
  kBuyValue,     ///< rupees
  kSellQuantity,
  kSellValue,  ///< rupees
  kSymbol,     ///< at the National exchange
  kIsin,
  kName,     ///< of the scrip
  kCode,     ///< at the Bombay exchange
  kToken,    ///< the number that an exchange gives a scrip; at the Bombay one its code
  kOwnCode,  ///< by which only this broker knows the scrip
  kExchange,
  kSegment,
  kSeries,
  kTradeNumber,
  kOrderNumber,
  kBillNumber,
  kSettlement,
  kAccount,         ///< the client's demat account
  kBrokerage,       ///< rupees
  kBrokerageEach,   ///< rupees a share
  kBrokerageTaxed,  ///< rupees, with the tax on it
  kAllCharges,      ///< rupees, everything that the broker takes, in one sum
  kTax,             ///< rupees: goods and services tax, service tax
  kStt,             ///< rupees
  kExchangeFee,     ///< rupees
  kSebiFee,         ///< rupees
  kStampDuty,       ///< rupees
  kOtherCharges,    ///< rupees
  kTaxes,           ///< rupees: all charges but the brokerage in one sum
};

inline constexpr std::size_t kMeanings = static_cast<std::size_t>(Meaning::kTaxes) + 1;

constexpr std::size_t PlaceOf(Meaning meaning) {
  return static_cast<std::size_t>(meaning);
}
constexpr bool IsCharge(Meaning meaning) {
  return meaning >= Meaning::kBrokerage;
}

/// The word for a meaning in files of layouts: "trade_number".
std::string_view WordOf(Meaning meaning);
std::optional<Meaning> MeaningOf(std::string_view word);

/// The meaning in the user's language.
QString TextOf(Meaning meaning);

}  // namespace quorvane::portfolio
