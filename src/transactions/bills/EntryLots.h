#pragma once

#include "core/Result.h"
#include "core/records/Bill.h"
#include "transactions/bills/HeldLots.h"

namespace quorvane::bills {

using records::Bill;
using records::BillLine;

/// The lots of a bill's account while it is entered: the ledger's as they were read, with the lines
/// that are recorded taken back and those of the entry posted. They are held in memory and written
/// to the scratch table as well, which is never read; so no other program can change them.
class EntryLots {
 public:
  /// Reads the account's lots. `recorded` is the bill as it is recorded, if it is.
  EntryLots(database::Connection& connection, const ledger::Place& place, const Bill& recorded);

  /// Posts the lines in place of those before, and hands them back with their lots. A refusal,
  /// with the field, and a DatabaseError leave everything as it was.
  Result<std::vector<BillLine>> Post(std::vector<BillLine> lines, Field field);

  /// The account's lots, smallest quantity first, a line that is replaced taken back. Purchases of
  /// `bill` are of its day.
  std::vector<HeldLot> Balance(const Bill& bill, const BillLine* replaced = nullptr) const;

  /// What moved shares of the account, the bill as it is recorded included.
  const std::vector<records::Movement>& Movements() const { return movements_; }

 private:
  void WriteScratch(const ledger::Lots& lots);

  database::Connection* connection_;
  ledger::Place place_;
  std::vector<BillLine> recorded_;  ///< that the ledger has posted in this account
  BillId bill_;
  ledger::Lots stock_;  ///< as the ledger was read
  ledger::Lots lots_;   ///< as the entry's lines leave them
  std::vector<records::Movement> movements_;
};

}  // namespace quorvane::bills
