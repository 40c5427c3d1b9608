#pragma once

#include "core/database/Connection.h"
#include "core/ledger/Lots.h"
#include "core/records/Movements.h"
#include "core/records/Rates.h"

#include <span>
#include <vector>

namespace quorvane::bills {

/// The average rate of a holding while its bills are walked in order.
class AverageWalk {
 public:
  /// Shares come in at a cost in rupees, service tax included.
  void Receive(double quantity, double cost);

  /// Shares leave at the average. When the holding is used up the average starts again.
  void Release(double quantity);

  double Quantity() const { return quantity_; }
  double Average() const { return average_; }  ///< rupees a share, 0 while nothing is held

 private:
  double quantity_ = 0;
  double average_ = 0;
};

using records::AverageRate;

/// Works the average rates of an account out and keeps them, for every scrip that has a lot: from
/// the opening balance, then the bill lines by date, bill and line, as `movements` of the account
/// have them. One transaction, and the same few queries whatever the number of scrips; nothing is
/// written when the rates are what they were. Transfers do not count.
void RebuildAverageRates(database::Connection& connection, const ledger::Place& place,
                         std::span<const records::Movement> movements);

/// The rates as last worked out, by scrip id.
std::vector<AverageRate> ReadAverageRates(database::Connection& connection,
                                          const ledger::Place& place);

}  // namespace quorvane::bills
