#pragma once

#include "core/Ids.h"
#include "core/database/Connection.h"
#include "core/lookups/Scrips.h"
#include "core/records/BillAmounts.h"
#include "core/text/FinancialYear.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace quorvane::bills {

/// What the entry of a bill line looks up.

enum class Delivery : std::uint8_t { kDeliveryBased, kNonDeliveryBased };

/// "Delivery Based" or "Non Delivery Based": what is shown and stored.
QString DeliveryText(Delivery delivery);

/// nullopt for any other text, as bills of old have it.
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

}  // namespace quorvane::bills
