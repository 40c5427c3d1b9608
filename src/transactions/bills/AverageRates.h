#pragma once

#include "core/database/Connection.h"
#include "core/ledger/Lots.h"
#include "core/records/Movements.h"
#include "core/records/Rates.h"

#include <span>
#include <vector>

namespace quorvane::bills {

using records::AverageRate;

/// Computes and saves the average rates of an account, for every scrip that has a lot: from
/// the opening balance, then the bill lines by date, bill and line, as `movements` of the account
/// have them. One transaction, and the same few queries for any number of scrips; nothing is
/// written when no rate has changed. Transfers do not count.
void RebuildAverageRates(database::Connection& connection, const ledger::Place& place,
                         std::span<const records::Movement> movements);

/// The rates as last saved, by scrip id.
std::vector<AverageRate> ReadAverageRates(database::Connection& connection,
                                          const ledger::Place& place);

}  // namespace quorvane::bills
