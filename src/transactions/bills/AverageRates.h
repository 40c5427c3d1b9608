#pragma once

#include "core/database/Connection.h"
#include "core/ledger/Lots.h"
#include "core/records/Movements.h"
#include "core/records/Rates.h"

#include <span>
#include <vector>

namespace quorvane::bills {

using records::AverageRate;

/// Works the average rates of an account out and keeps them, for every scrip that has a lot: from
/// the opening balance, then the bill lines by date, bill and line, as `movements` of the account
/// have them. One transaction, and the same few queries for any number of scrips; nothing is
/// written when the rates are what they were. Transfers do not count.
void RebuildAverageRates(database::Connection& connection, const ledger::Place& place,
                         std::span<const records::Movement> movements);

/// The rates as last worked out, by scrip id.
std::vector<AverageRate> ReadAverageRates(database::Connection& connection,
                                          const ledger::Place& place);

}  // namespace quorvane::bills
