#pragma once

#include "core/Ids.h"
#include "core/Result.h"
#include "core/database/Transaction.h"
#include "core/ledger/Lots.h"

#include <span>

namespace quorvane::posting {

// Refuse a record whose owner, broker or scrip was deleted while its window was open: no report
// would find the record, and an export would not hold it. What is found is locked to the end of the
// transaction, so that it is not deleted before the record is written. `field` is what
// the refusal names.

MaybeRefusal CheckClient(database::Transaction& transaction, ClientId client, Field field);

/// A record without an account passes. A record may stay in the account `recorded` that it is in
/// already, although that was deleted.
MaybeRefusal CheckAccount(database::Transaction& transaction, ClientId client, AccountId account,
                          AccountId recorded, Field field);

/// A record without a broker passes. A record may keep the broker `recorded`, although that
/// was deleted.
MaybeRefusal CheckBroker(database::Transaction& transaction, BrokerId broker, BrokerId recorded,
                         Field field);

/// The same for the exchange of a bill.
MaybeRefusal CheckExchange(database::Transaction& transaction, ExchangeId exchange,
                           ExchangeId recorded, Field field);

/// All scrips of a record with one query. A record may keep the scrips in `recorded`, although they
/// were deleted; an empty scrip passes.
MaybeRefusal CheckScrips(database::Transaction& transaction, std::span<const ScripId> scrips,
                         std::span<const ScripId> recorded, Field field);
inline MaybeRefusal CheckScrip(database::Transaction& transaction, ScripId scrip, ScripId recorded,
                               Field field) {
  return CheckScrips(transaction, std::span(&scrip, 1), std::span(&recorded, 1), field);
}

/// The refusal of a record that would leave a lot below zero because its shares were sold or
/// transferred; it names the scrip. `field` is what the refusal
/// names.
MaybeRefusal RefuseShortage(database::Connection& connection, const ledger::Lots& lots,
                            Field field);
inline MaybeRefusal RefuseShortage(database::Transaction& transaction, const ledger::Lots& lots,
                                   Field field) {
  return RefuseShortage(transaction.GetConnection(), lots, field);
}

}  // namespace quorvane::posting
