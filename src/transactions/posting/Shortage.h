#pragma once

#include "core/Refusal.h"
#include "core/database/Connection.h"
#include "core/ledger/Lots.h"

namespace quorvane::posting {

/// Refuses when a lot was lowered below zero, and names the scrip of the first one.
MaybeRefusal CheckShortage(database::Connection& connection, const ledger::Lots& lots,
                           const QString& field);

}  // namespace quorvane::posting
