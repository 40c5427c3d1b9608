#pragma once

#include "core/Refusal.h"
#include "core/database/Transaction.h"
#include "core/ledger/Lots.h"

namespace quorvane::posting {

/// The refusal of a record that would leave a lot below zero because its shares were sold or
/// transferred; it names the scrip. `field` is what gets the focus.
MaybeRefusal RefuseShortage(database::Connection& connection, const ledger::Lots& lots,
                            const QString& field);
inline MaybeRefusal RefuseShortage(database::Transaction& transaction, const ledger::Lots& lots,
                                   const QString& field) {
  return RefuseShortage(transaction.GetConnection(), lots, field);
}

}  // namespace quorvane::posting
