#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "reporting/charts/ChartData.h"
#include "reports/mis/MisQuery.h"

namespace quorvane::mis {

/// What is held on the query's day by scrip, the largest `most` and the others together, at market
/// rates. Scrips without any rate are left out; a note names them.
charts::ChartData Composition(database::Connection& connection, const MisQuery& query, int most,
                              Progress& progress);

/// The holdings at the end of each month of the year up to the period's last day: their market
/// value at the newest rates up to that day, beside their cost. A scrip that has no rate by then
/// counts at cost.
charts::ChartData ValueByMonth(database::Connection& connection, const MisQuery& query,
                               Progress& progress);

/// The gains of the period's sales by month and kind.
charts::ChartData GainsByKind(database::Connection& connection, const MisQuery& query,
                              Progress& progress);

}  // namespace quorvane::mis
