#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/records/Faults.h"
#include "core/text/Dates.h"
#include "core/text/Shares.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace quorvane::records {

/// The kinds of movements, in the order in which those of one day count: what a corporate action
/// does comes before the trades of its ex-day.
enum class MovementKind : std::uint8_t {
  kOpening,
  kActionIn,
  kPurchase,
  kTransferIn,
  kActionOut,
  kSale,
  kTransferOut
};

/// Whether the shares came in; otherwise they left.
constexpr bool IsReceipt(MovementKind kind) {
  return kind <= MovementKind::kTransferIn;
}

/// Shares that came into an account or left it, as one record has it. A transfer gives two: out of
/// its account, then into the other one. A lot of a corporate action gives one or two: out of the
/// lot, then into another.
struct Movement {
  MovementKind kind = MovementKind::kOpening;
  bool fo = false;            ///< futures and options
  bool dated = false;         ///< `date` was read; an opening lot always has a date here
  bool non_delivery = false;  ///< with MovementScope::delivery: of a line sold or bought so
  ClientId client;
  text::FinancialYear year;
  AccountId account;
  ScripId scrip;
  text::Date date;
  text::Date acquired;  ///< `date`, but of shares from a corporate action the day they count from
  int document = 0;     ///< key of the bill, transfer, opening lot or corporate action
  int line = 0;         ///< of the bill or action
  int other = 0;        ///< the broker of a bill, the account at the other end of a transfer
  LotId lot;            ///< as the record names it: what a sale draws on, a purchase came into
  text::Shares quantity;
  double rate = 0;  ///< rupees a share: the lot's, but of a sale the rate sold at

  // With MovementScope::charges only.
  double brokerage = 0;    ///< rupees a share
  double net = 0;          ///< rupees a share, with brokerage
  double amount = 0;       ///< rupees; of opening lots and actions quantity at `net`
  double service_tax = 0;  ///< rupees for the whole quantity
  double stt = 0;          ///< rupees for the whole quantity
};

/// Which movements to read; what is not given is not limited.
struct MovementScope {
  std::optional<ClientId> client = {};
  std::optional<text::FinancialYear> year = {};
  std::optional<ScripId> scrip = {};
  bool charges = true;          ///< read the money of the records, too
  bool delivery = false;        ///< read the delivery type and F&O of the lines, too
  bool every_transfer = false;  ///< transfers between other clients, too
};

/// Reads everything that moved shares: opening lots, then bill lines, transfers and the lots of
/// corporate actions, each in the server's order, with one query a table. Lines of a bill that is
/// not there are passed over. What cannot count as it is written is treated as FaultKind says and
/// added to `faults`; so a bad record never keeps another one from being counted. Throws
/// DatabaseError and Cancellation.
void ReadMovements(database::Connection& connection, const MovementScope& scope, Faults& faults,
                   Progress& progress, const std::function<void(const Movement&)>& take);

}  // namespace quorvane::records
