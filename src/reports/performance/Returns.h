#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/positions/Positions.h"
#include "core/records/Faults.h"
#include "reporting/charts/ChartData.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/period/Period.h"
#include "reports/performance/Flows.h"
#include "reports/performance/MoneyWeighted.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

namespace quorvane::performance {

/// What a group of holdings, or all of them, did over the period. Amounts in whole paise; every one
/// but the return adds up over the groups.
struct Figures {
  Paise opening;    ///< value before the first day
  Paise bought;     ///< with all charges
  Paise sold;       ///< charges taken off; also taken back by the company, and fractions
  Paise dividends;  ///< received: tax deducted taken off
  Paise tax;        ///< deducted from dividends
  Paise moved;      ///< came in without a trade, less what left so
  Paise closing;    ///< value at the end of the last day
  std::vector<CashFlow> flows;

  Paise Gain() const { return closing + sold + dividends - opening - bought - moved; }
};

/// A flow of the whole as it is listed. One of the two sides is 0.
struct FlowLine {
  Date day;
  FlowKind kind = FlowKind::kPurchase;
  QString scrip;
  QString account;
  Paise put_in;
  Paise came_out;
  bool at_cost = false;               ///< a value of which no rate is known
  std::optional<Date> rate_day = {};  ///< of a value
};

/// The value of a day. What no rate is known of counts at cost.
struct DayValue {
  Date day;
  Paise cost;
  Paise value;
  Paise at_cost;               ///< part of the value
  std::optional<Date> oldest;  ///< day of the oldest rate that was taken
};

/// A group of holdings in a table of the report: a scrip, an account or a client.
struct GroupFigures {
  QString name;
  Figures figures;
  std::optional<Date> rate_day = {};  ///< of a scrip: the day of its closing rate
  bool at_cost = false;               ///< of a scrip: no rate is known on the last day
};

/// The returns of a client or a family, of all that they hold or of one account or scrip.
struct Returns {
  reporting::Period period;
  QStringList of_whom;  ///< clients, account and scrip
  Figures whole;
  std::vector<GroupFigures> scrips;    ///< by name
  std::vector<GroupFigures> accounts;  ///< by number; none when there is one only
  std::vector<GroupFigures> clients;   ///< by name; none when there is one only
  std::vector<FlowLine> flows;         ///< by day, without what stays within
  std::vector<DayValue> months;        ///< the ends of the months, and the last day
  QStringList notes;                   ///< what counts at cost, at an earlier rate, or not
  records::Faults faults;
};

struct ReturnsQuery {
  std::set<ClientId> clients;  ///< one, or those of a family
  std::optional<AccountId> account = {};
  std::optional<ScripId> scrip = {};
  std::optional<Date> from = {};  ///< the day of the first record when none is given
  Date to;
};

/// Reads all years with one query a table. Shares count with the layers of core/positions; futures
/// and options are left out. Throws DatabaseError and Cancellation.
Returns ReadReturns(database::Connection& connection, const ReturnsQuery& query,
                    Progress& progress);

enum class Months : std::uint8_t { kWith, kWithout };

/// Everything as a document: by scrip, account and client, value by month, flows of money.
reporting::ReportDocument MakeReturnsDocument(const Returns& returns,
                                              Months months = Months::kWith);

/// The value by month alone.
reporting::ReportDocument MakeMonthsDocument(const Returns& returns);

/// Cost and value at the ends of the months; of a long period the last ten years.
charts::ChartData ValueChart(const Returns& returns);

}  // namespace quorvane::performance
