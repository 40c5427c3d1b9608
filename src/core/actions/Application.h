#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "core/actions/Effect.h"
#include "core/database/Transaction.h"

#include <map>
#include <span>
#include <utility>
#include <vector>

namespace quorvane::actions {

using records::Action;

/// What an action does to an account.
struct AccountEffect {
  ClientId client;
  AccountId account;
  Effect effect;
};

/// Shares subscribed by rights or given to a buy-back, where they are not the usual ones.
using ChosenShares = std::map<std::pair<ClientId, AccountId>, Shares>;

/// What the action does to every account that holds the scrip when its ex-day begins, by the
/// records of that year, in the order of client code and account number. Several actions of one
/// ex-day are carried out in the order in which they were recorded; a dividend is for what was held
/// before all of them. Changes nothing. One query a table. Throws DatabaseError and Cancellation.
std::vector<AccountEffect> EffectsOf(database::Connection& connection, const Action& action,
                                     const ChosenShares& chosen, Progress& progress);

/// What was subscribed or given when an action was applied.
ChosenShares AppliedShares(database::Connection& connection, const Action& action);

/// Refuses when an action of a later day, or one applied after it, touched lots of the same scrips.
/// Those of `together`, which are taken back with it, do not count.
MaybeRefusal CheckIsLast(database::Transaction& transaction, const Action& action,
                         std::span<const Action> together = {});

/// Whether the records still give the holdings that an action was applied to. If not, because bills
/// of earlier days were entered or deleted, it is to be taken back and applied again.
bool IsCurrent(database::Connection& connection, const Action& action, Progress& progress);

/// A sentence for each applied action that is not current, by ex-day.
QStringList OutdatedActions(database::Connection& connection, Progress& progress);

/// The lots of an action by account, numbered, with what they belong to.
std::vector<records::ActionLot> LotsOf(const Action& action,
                                       std::span<const AccountEffect> effects);

/// Writes an action's lots, and of a dividend what every holder gets. Holdings stay as they are.
void WriteEffects(database::Transaction& transaction, const Action& action,
                  std::span<const AccountEffect> effects);

/// Applies a recorded action: its lots are written and the holdings follow. Refused, with a list,
/// when sales or transfers of the ex-day or later would then lack shares. Reads without locks, so
/// the transaction must run alone (database::Turn::kAlone). Returns the number of accounts.
Result<std::size_t> Apply(database::Transaction& transaction, const Action& action,
                          const ChosenShares& chosen, Progress& progress);

/// Takes an applied action back: the holdings are as before it. Refused, with a list, when sales or
/// transfers would then lack shares. The transaction must run alone.
MaybeRefusal TakeBack(database::Transaction& transaction, const Action& action);

}  // namespace quorvane::actions
