#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/positions/Positions.h"
#include "core/records/Dividend.h"
#include "reporting/charts/ChartData.h"
#include "reporting/document/ReportDocument.h"

#include <map>
#include <set>
#include <vector>

namespace quorvane::scrip_page {

using text::Date;

struct ScripPageQuery {
  std::set<ClientId> clients;  ///< one, or those of a family
  ScripId scrip;
  Date as_on;  ///< nothing after it counts
};

/// Everything that is recorded of one scrip of a client or a family, over all years.
class ScripPage {
 public:
  /// Reads with one query a table. Throws DatabaseError and Cancellation.
  ScripPage(database::Connection& connection, const ScripPageQuery& query, Progress& progress);

  /// What is held, with its value at the newest rate up to the day; what was bought, sold and
  /// transferred; gains; corporate actions; dividends. Tables without a row are left out.
  reporting::ReportDocument Document() const;

  /// The recorded rates by month: the newest of each month.
  charts::ChartData RateChart() const;

  /// What the holding cost and what it was worth at the end of each month, at the newest rate up to
  /// then; months before the first rate have no value.
  charts::ChartData HoldingChart() const;

 private:
  struct RateOfDay {
    Date date;
    double rate = 0;
  };

  void ReadRates(database::Connection& connection);
  void ReadNames(database::Connection& connection);
  bool IsWanted(ClientId client) const { return query_.clients.contains(client); }
  bool IsCarried(const positions::Event& event) const;
  const RateOfDay* NewestRate(Date day) const;
  std::vector<Date> MonthEnds() const;

  reporting::Table HoldingTable() const;
  reporting::Table GainTable() const;
  reporting::Table MovementTable() const;
  reporting::Table DifferenceTable() const;
  reporting::Table ActionTable() const;
  reporting::Table DividendTable() const;

  ScripPageQuery query_;
  positions::EventList history_;
  positions::Positions now_;
  std::vector<records::Dividend> dividends_;
  std::vector<RateOfDay> rates_;  ///< by day
  std::map<AccountId, QString> accounts_;
  std::map<ClientId, QString> clients_;
  std::map<ScripId, QString> scrips_;  ///< the scrip and those of its actions
};

}  // namespace quorvane::scrip_page
