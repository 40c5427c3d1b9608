#pragma once

#include "core/Refusal.h"
#include "core/ledger/Ledger.h"
#include "transactions/posting/LotSheet.h"

#include <functional>
#include <optional>
#include <vector>

namespace quorvane::posting {

/// The copy of a client's lots on the scratch table Stock_Temp, on which a record is tried out
/// while it is edited. The ledger itself is changed only when the record is saved, which posts it
/// there anew; so another program that works on the scratch table meanwhile cannot spoil holdings.
class ScratchLots {
 public:
  ScratchLots(database::Connection& connection, const ClientYear& of);

  using Post = std::function<MaybeRefusal(LotSheet&)>;

  /// Replaces the client's lots of the year there by those of the ledger: of one account, or of
  /// all when there is none. With `post` they are changed by it in the same transaction; when it
  /// refuses, everything stays as it was.
  MaybeRefusal Begin(std::optional<AccountId> account, const Post& post = {});

  /// The account's lots there, smallest quantity first, then by id.
  std::vector<ledger::Lot> Lots(AccountId account) const;

  /// Lets `post` change the lots there in one transaction; when it refuses, nothing is changed.
  MaybeRefusal Change(const Post& post);

  /// Removes the client's lots of the year there.
  void Clear();

 private:
  database::Connection& connection_;
  ClientYear of_;
};

/// An account's lots, smallest quantity first, then by id.
std::vector<ledger::Lot> LotsByQuantity(database::Connection& connection, const ClientYear& of,
                                        AccountId account, ledger::LotTable table);

/// Removes the client's lots of the year from the scratch table as part of a caller's transaction:
/// a saved record has no more use for them.
void EmptyScratch(database::Transaction& transaction, const ClientYear& of);

}  // namespace quorvane::posting
