#pragma once

#include "core/Result.h"
#include "portfolio/reconcile/Reconciliation.h"

namespace quorvane::reconcile {

/// Keeps that each account of a statement was compared today, in place of an earlier comparison
/// with a statement of the same day; an equal one stays untouched. Nothing is kept by a user who
/// may not enter records, nor when the books of another day than the statement's were compared.
/// Throws DatabaseError.
void KeepCheck(database::Connection& connection, const Reconciliation& result, text::Date today);

}  // namespace quorvane::reconcile
