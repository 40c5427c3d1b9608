#pragma once

#include "reports/home/Figures.h"

#include <span>
#include <unordered_map>

namespace quorvane::home {

/// The names of those scrips, by one query.
std::unordered_map<ScripId, QString> ScripNames(database::Connection& connection,
                                                std::span<const ScripId> scrips);

/// Dividends of what is held, the next first: announced ones whose ex-day is to come; those of the
/// last year that are recorded for no account although the scrip is held; and recorded ones that
/// are to be received after today.
std::vector<ComingDividend> ReadComingDividends(database::Connection& connection,
                                                const Scope& scope,
                                                const std::unordered_map<ScripId, Held>& held);

}  // namespace quorvane::home
