#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "portfolio/reconcile/Reconciliation.h"

namespace quorvane::reconcile {

/// Takes the holdings of a statement in as the opening stock of a client of whom nothing is
/// recorded yet, in the year in which the day after the statement's is, all or nothing. Cost and
/// day of purchase are in no statement: the lots have the rate 0 and the statement's day, and each
/// is marked until it has a rate (OpenMarks). Refused as by OwnerOf, when the client has records,
/// when a row was not understood, when an account is not the client's, and when a security is of no
/// scrip. Returns the number of lots.
Result<std::size_t> TakeInAsOpening(database::Connection& connection, const Statement& statement,
                                    const ReconcileQuery& query, Progress& progress);

}  // namespace quorvane::reconcile
