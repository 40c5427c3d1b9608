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

enum class MovementKind : std::uint8_t { kOpening, kPurchase, kTransferIn, kSale, kTransferOut };

/// Shares that came into an account or left it, as one record has it. A transfer gives two: out of
/// its account, then into the other one.
struct Movement {
  MovementKind kind = MovementKind::kOpening;
  bool fo = false;            ///< futures and options
  bool dated = false;         ///< `date` was read; an opening lot always has a date here
  bool non_delivery = false;  ///< with MovementScope::delivery only: of a line sold or bought so
  ClientId client;
  text::FinancialYear year;
  AccountId account;
  ScripId scrip;
  text::Date date;
  int document = 0;  ///< key of the bill, transfer or opening lot
  int line = 0;      ///< of the bill
  int other = 0;     ///< the broker of a bill, the account at the other end of a transfer
  LotId lot;         ///< as the record names it: what a sale draws on, a purchase landed in
  text::Shares quantity;
  double rate = 0;  ///< rupees a share: the lot's, but of a sale the rate sold at

  // With MovementScope::charges only.
  double brokerage = 0;    ///< rupees a share
  double net = 0;          ///< rupees a share, with brokerage
  double amount = 0;       ///< rupees; of an opening lot its total
  double service_tax = 0;  ///< rupees for the whole quantity
  double stt = 0;          ///< rupees for the whole quantity
};

/// Which movements to read; what is not given is not limited.
struct MovementScope {
  std::optional<ClientId> client;
  std::optional<text::FinancialYear> year;
  bool charges = true;          ///< read the money of the records, too
  bool delivery = false;        ///< without `charges`: read the delivery type of the lines, too
  bool every_transfer = false;  ///< transfers between other clients, too
};

/// Reads everything that moved shares: opening lots, then bill lines, then transfers, each in the
/// server's order, with one query a table. Lines of a bill that is not there are passed over. What
/// cannot count as it is written is treated as FaultKind says and added to `faults`; so a bad
/// record never keeps another one from being counted. Throws DatabaseError and Cancellation.
void ReadMovements(database::Connection& connection, const MovementScope& scope, Faults& faults,
                   Progress& progress, const std::function<void(const Movement&)>& take);

}  // namespace quorvane::records
