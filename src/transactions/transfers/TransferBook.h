#pragma once

#include "core/ClientYear.h"
#include "core/Result.h"
#include "core/database/Transaction.h"
#include "core/ledger/Lots.h"
#include "transactions/transfers/Transfer.h"

#include <optional>
#include <vector>

namespace quorvane::transfers {

/// The transfers out of a client's accounts in a year, and what they do to the lots at both ends.
/// Every save and delete is one transaction; one that is refused, or that throws DatabaseError,
/// changes nothing.
class TransferBook {
 public:
  TransferBook(database::Connection& connection, const ClientYear& of);

  /// By date, then by id.
  std::vector<Transfer> List() const;

  /// Writes a new transfer, or a changed one in place of the old, and moves the shares in the
  /// ledger. Returns what was saved: with what it takes from its lot, and its id. Refused when
  /// the client or one of the accounts was deleted meanwhile, when the lot has too few shares, or
  /// when a change would leave the old destination's lot below zero because its shares were used.
  Result<Transfer> Save(const Transfer& transfer);

  /// Deletes a transfer and returns its shares. Refused when they were used at their destination.
  MaybeRefusal Delete(TransferId id);

  /// The client's lots as the ledger has them, with `changed` taken back so that it can be entered
  /// again with the balances as they were without it. They are copied to the scratch table.
  ledger::Lots Begin(const std::optional<Transfer>& changed);

  /// Empties the client's part of the scratch table.
  void End();

 private:
  database::Connection& connection_;
  ClientYear of_;
};

}  // namespace quorvane::transfers
