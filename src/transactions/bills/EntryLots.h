#pragma once

#include "core/Result.h"
#include "core/records/Bill.h"
#include "transactions/bills/HeldLots.h"

namespace quorvane::bills {

using records::Bill;
using records::BillLine;

/// The lots of a bill's account while it is entered: the ledger's as they were read, with the
/// recorded lines taken back and those of the entry posted. They are in memory, so no other program
/// can change them; a copy is written to the scratch table, which is never read.
class EntryLots {
 public:
  /// Reads the account's lots. `recorded` is the bill as it is recorded, if it is.
  EntryLots(database::Connection& connection, const ledger::Place& place, const Bill& recorded);

  /// Posts the lines in place of those before, and returns them with their lots. A refusal,
  /// with the field, and a DatabaseError leave everything as it was.
  Result<std::vector<BillLine>> Post(std::vector<BillLine> lines, Field field);

  /// The account's lots, smallest quantity first, without the line that is replaced. Purchases of
  /// `bill` count from its day.
  std::vector<HeldLot> Balance(const Bill& bill, const BillLine* replaced = nullptr) const;

  /// What moved shares of the account, the bill as it is recorded included.
  const std::vector<records::Movement>& Movements() const { return movements_; }

 private:
  void WriteScratch(const ledger::Lots& lots);

  database::Connection* connection_;
  ledger::Place place_;
  std::vector<BillLine> recorded_;  ///< lines that the ledger has posted in this account
  BillId bill_;
  ledger::Lots stock_;  ///< as the ledger was read
  ledger::Lots lots_;   ///< as they are after the entry's lines
  std::vector<records::Movement> movements_;
};

}  // namespace quorvane::bills
