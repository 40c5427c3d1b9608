#pragma once

#include "core/database/Schema.h"

#include <QString>

#include <span>

namespace quorvane::database {

/// Why the program cannot work with this server, with the setting to change; empty when it can. A
/// server must tell table names not apart by case, and must let this user read, write, create and
/// change tables. Changes nothing. Throws DatabaseError.
QString WhyUnsuitable(Connection& connection);

/// Why the program cannot work with tables of which the set-up had to leave this out; empty when it
/// can: only what makes work quicker or safer is missing.
QString WhyIncomplete(std::span<const SkippedStatement> skipped);

}  // namespace quorvane::database
