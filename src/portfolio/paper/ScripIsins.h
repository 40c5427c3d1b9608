#pragma once

#include "core/Ids.h"
#include "core/Result.h"
#include "core/database/Connection.h"

#include <QString>

namespace quorvane::paper {

/// Lets a scrip be known by an ISIN from now on, beside those that it has. Refused when the text is
/// no ISIN or another scrip has it.
MaybeRefusal AssignIsin(database::Connection& connection, ScripId scrip, const QString& isin);

}  // namespace quorvane::paper
