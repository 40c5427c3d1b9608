#pragma once

#include "core/positions/EventReader.h"
#include "core/rates/RateHistory.h"
#include "core/records/Dividend.h"
#include "reporting/period/Period.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace quorvane::performance {

using text::Date;
using text::Paise;
using text::Shares;

/// Whose shares, in which account and of which scrip. Never futures and options.
struct Spot {
  ClientId client;
  AccountId account;
  ScripId scrip;
};

/// In the order in which those of one day are listed.
enum class FlowKind : std::uint8_t {
  kOpeningValue,
  kOpeningBalance,
  kAction,
  kTransfer,
  kPurchase,
  kRights,
  kSale,
  kBuyBack,
  kFraction,
  kDividend,
  kClosingValue
};

/// Value that went from one place to another. An end that is missing is money, or a place outside
/// the program's records.
struct Flow {
  Date day;
  FlowKind kind = FlowKind::kPurchase;
  std::optional<Spot> from = {};
  std::optional<Spot> to = {};
  Paise amount = {};
  Paise tax = {};                     ///< deducted from a dividend; not in the amount
  bool valued = false;                ///< the amount is a value, not money
  std::optional<Date> rate_day = {};  ///< of a value: the day of its rate; none at cost

  bool IsAtCost() const { return valued && !rate_day; }
};

/// What shares are worth on a day.
struct Worth {
  Paise amount;
  std::optional<Date> rate_day;  ///< none at cost
};

/// At the newest rate up to the day; at cost when there is none.
Worth WorthOf(const rates::RateHistory& rates, ScripId scrip, Shares quantity, Paise cost,
              Date day);

/// The other and transaction charges of bills, by client and bill.
using BillCharges = std::map<std::pair<ClientId, int>, Paise>;

/// What the flows of a period are made of.
struct FlowSource {
  const positions::EventList& history;
  const positions::Positions& positions;  ///< with the balances of the day before the period and
                                          ///< of its last day
  std::span<const records::Dividend> dividends;
  const BillCharges& charges;
  const rates::RateHistory& rates;
  reporting::Period period;
};

/// The flows of the period by day, with the value before its first day, dated with the day before
/// it, and the value at its end. Balances that a year opens with on the first day count into the
/// opening value. Every purchase and sale has its charges, also its part of those of the bill. What
/// goes to another account or scrip has its market value.
std::vector<Flow> MakeFlows(const FlowSource& source);

}  // namespace quorvane::performance
