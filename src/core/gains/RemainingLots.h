#pragma once

#include "core/gains/History.h"

#include <vector>

namespace quorvane::gains {

/// What is left of one purchase at the end of a year.
struct RemainingLot {
  ClientId client;
  AccountId account;
  ScripId scrip;
  Date date;               ///< of the purchase
  double quantity = 0;     ///< shares left
  double rate = 0;         ///< the lot's rate, rupees a share
  double brokerage = 0;    ///< rupees a share
  double total = 0;        ///< rupees for the quantity left: rate and brokerage
  double service_tax = 0;  ///< rupees, the part of the quantity left, to the paisa
  double stt = 0;          ///< rupees, the part of the quantity left, to the paisa
  bool fo = false;
};

/// The purchases that the sales and transfers of the year have not used up, of one client or of
/// all: by client code, scrip name, account number and date.
std::vector<RemainingLot> RemainingLots(database::Connection& connection,
                                        std::optional<ClientId> client, text::FinancialYear year,
                                        Progress& progress);

}  // namespace quorvane::gains
