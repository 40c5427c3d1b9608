#pragma once

#include "core/Ids.h"
#include "core/Refusal.h"
#include "core/records/Money.h"

#include <cstdint>
#include <optional>

namespace quorvane::broker_money {

using BrokerOpeningId = Id<struct BrokerOpeningTag>;

using LedgerSide = records::DebitCredit;

/// The sides as a grid shows them.
inline constexpr char kSideChoices[] = "#0;Dr|#1;Cr";

/// What stood in a broker's account when a financial year began.
struct BrokerOpening {
  BrokerOpeningId id;  ///< none until it is saved
  BrokerId broker;
  double amount = 0;               ///< rupees, never negative
  std::optional<LedgerSide> side;  ///< none while it is not chosen
};

/// The first rule that the balance breaks: broker, amount, side.
MaybeRefusal CheckBrokerOpening(const BrokerOpening& opening);

/// A balance in paise, credit positive, as it is carried into the next year: without its sign, and
/// on the credit side unless it is negative.
BrokerOpening CarriedOpening(BrokerId broker, std::int64_t balance_paise);

}  // namespace quorvane::broker_money
