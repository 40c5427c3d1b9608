#pragma once

#include "core/ledger/Lots.h"
#include "portfolio/Portfolio.h"

#include <set>

namespace quorvane::portfolio {

/// The years of the folder's opening stock, bills and transfers.
std::set<text::FinancialYear> TouchedYears(const Portfolio& portfolio);

/// Waits until no other program adds records or moves lots of these years, and keeps others waiting
/// until the transaction ends. To be called before the transaction reads anything: what it reads
/// then decides what it writes. Returns the lots of the years.
ledger::Lots WaitForOtherWriters(database::Transaction& transaction,
                                 const std::set<text::FinancialYear>& years);

}  // namespace quorvane::portfolio
