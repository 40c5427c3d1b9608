#pragma once

#include "core/Ids.h"
#include "core/Refusal.h"
#include "core/database/Transaction.h"

namespace quorvane::posting {

// Refuse a record whose owner was deleted while its window stood open: no report would find the
// record, and an export would not hold it. The owner is held to the end of the transaction, so that
// it is not deleted before the record is written. `field` is where the account is chosen.

MaybeRefusal CheckClient(database::Transaction& transaction, ClientId client, const QString& field);

/// No account is none that could be missing. A record may stay in the account `recorded` that it is
/// in already, although that was deleted.
MaybeRefusal CheckAccount(database::Transaction& transaction, ClientId client, AccountId account,
                          AccountId recorded, const QString& field);

}  // namespace quorvane::posting
