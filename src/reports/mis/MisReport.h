#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "reporting/charts/ChartData.h"
#include "reporting/document/ReportDocument.h"
#include "reports/mis/Holdings.h"
#include "reports/mis/MisQuery.h"

#include <span>

namespace quorvane::mis {

/// "Portfolio Position", "Portfolio Valuation", "Market Valuation", "Profit/Loss Statement" or
/// "Stock Valuation".
QString TitleOf(ReportKind kind);

/// The title with the grouping: "Portfolio Position (Script Wise)".
QString TitleOf(ReportKind kind, Grouping grouping);

/// "31 March, 2012", in English whatever the locale.
QString LongDate(Date date);

/// Makes a management report.
///
/// Portfolio Position: opening, purchases, sales and transfers of the period in shares, the balance
/// at its end, and the cost of what is left. Profit/Loss: the same movements with the gains of the
/// sales, which are those of the capital-gain statement without charges. Stock Valuation: the lots
/// that are left on a day, at cost. Portfolio Valuation: the same lots at the market rate of the
/// day. Market Valuation: their cost beside their market value.
///
/// A scrip without a rate of that day takes its newest earlier one and is marked with that rate's
/// date; a scrip without any is shown, marked, and left out of the totals, and a note names it. A
/// note tells as well of shares that were sold without a purchase at their lot's rate.
///
/// Without holdings the table has no rows. Throws as gains::History does.
reporting::ReportDocument MakeMisReport(database::Connection& connection, const MisQuery& query,
                                        Progress& progress);

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

/// The same of holdings that were read already.
charts::ChartData GainsByKind(std::span<const Holding> holdings, const MisQuery& query);

}  // namespace quorvane::mis
