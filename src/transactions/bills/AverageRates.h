#pragma once

#include "core/ClientYear.h"
#include "core/database/Transaction.h"
#include "transactions/bills/Bill.h"

#include <vector>

namespace quorvane::bills {

struct AverageRate {
  ScripId scrip;
  double rate = 0;  ///< rupees a share
};

/// Works the average rates of an account out anew, for every scrip that has a lot: from the opening
/// balance, then the bill lines by date, bill and line, service tax in the cost. One transaction,
/// and the same few queries whatever the number of scrips; nothing is written when the rates are
/// what they were. Transfers do not count.
void RebuildAverageRates(database::Connection& connection, const ClientYear& of, AccountId account);

/// The rates as last worked out, by scrip id.
std::vector<AverageRate> ReadAverageRates(database::Connection& connection, const ClientYear& of,
                                          AccountId account);

}  // namespace quorvane::bills
