#pragma once

#include "core/Ids.h"
#include "core/app/Folders.h"
#include "core/database/Connection.h"
#include "core/lookups/Scrips.h"
#include "core/records/BillAmounts.h"
#include "core/text/Dates.h"
#include "core/text/FinancialYear.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace quorvane::bills {

/// What the entry of a bill line looks up.

enum class Delivery : std::uint8_t { kDeliveryBased, kNonDeliveryBased };

/// "Delivery Based" or "Non Delivery Based": what is stored.
QString DeliveryText(Delivery delivery);

/// A stored text in the user's language; one that is no way of delivery as it is.
QString ShownDelivery(const QString& stored);

/// nullopt for any other text; old bills have some.
std::optional<Delivery> DeliveryOf(const QString& text);

/// The percentages of a year; one that was not recorded is 0.
records::ChargePercents ReadPercents(database::Connection& connection, text::FinancialYear year,
                                     Delivery delivery);

/// The rate in rupees recorded for a scrip and day (dd/mm/yyyy) in a year; one of 0 is none.
std::optional<double> MarketRateOf(database::Connection& connection, text::FinancialYear year,
                                   ScripId scrip, const QString& date);

using lookups::FindScripByCode;
using lookups::ScripFound;
using lookups::ScripList;

/// A scrip whose price on a day is looked for at an exchange.
struct RateQuestion {
  QString exchange;  ///< "BSE" or "NSE"
  ScripFound scrip;
  text::Date date;
  text::Date today;
};

/// Looks for a price in the background and calls `answer` later in the same thread with the rate in
/// rupees, 0 when nothing was found. A new question ends the one before.
using RateSource =
    std::function<void(const RateQuestion& question, std::function<void(double rate)> answer)>;

/// Asks the exchange for the closing price of the day, and for the current quote when that is today
/// and there is none yet. Answers are given as long as the source exists.
RateSource AskExchanges(const app::Folders& folders);

}  // namespace quorvane::bills
