#pragma once

#include "core/ClientYear.h"
#include "core/database/Connection.h"
#include "core/text/Dates.h"
#include "reports/home/KeptFigures.h"
#include "reports/home/LastRecords.h"
#include "reports/home/NewestRates.h"
#include "reports/home/StatementChecks.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace quorvane::home {

/// Whose figures are wanted, of which year.
struct Scope {
  QString family;  ///< a group code; empty for all clients
  text::FinancialYear year;
  Date today;

  bool operator==(const Scope&) const = default;
};

/// What a client, or everybody, holds of a scrip. Without a rate there is no value.
struct Held {
  ClientId client;
  ScripId scrip;
  Shares quantity;
  Paise cost;
  std::optional<RatePair> rates = {};
  Paise value = {};    ///< quantity at the newest rate, rounded once
  Paise change = {};   ///< of the value on the market's newest day; 0 without a rate of that day
  bool is_old = true;  ///< there is no rate of the last seven days
};

struct ClientGains {
  ClientId client;
  Gains gains;
};

/// A dividend that is to come, or that was announced and is recorded for nobody.
struct ComingDividend {
  QString scrip_name = {};
  QString day = {};  ///< ex-day of an announcement, else the day on which it is received
  double per_share = 0;
  std::optional<Paise> amount =
      std::nullopt;  ///< for the shares held today; none when the ex-day is past
  int action = 0;    ///< key of the announcement; else of a recorded dividend:
  int dividend = 0;
  std::optional<ClientYear> of = std::nullopt;
  QString client_name = {};
};

struct LargeHolding {
  Held held;  ///< of all clients of the scope together
  QString name;
};

struct Figures {
  int clients = 0;   ///< of the scope
  int computed = 0;  ///< of them have figures
  std::optional<Date> market_day;
  Paise value;  ///< of what has a rate
  Paise change;
  Paise cost;            ///< of everything held
  Paise unrealised;      ///< value less cost of what has a rate
  int without_rate = 0;  ///< scrips held that have none of the last seven days
  StatementCounts statements;
  Gains gains;
  std::vector<LargeHolding> largest;  ///< by value
  std::vector<ComingDividend> dividends;
  std::vector<LastRecord> last;
};

/// The codes of the families, without the empty one.
QStringList Families(database::Connection& connection);

/// What the clients of the scope hold, by client and scrip; the values add up to the figures.
struct Holdings {
  std::optional<Date> market_day;
  std::vector<Held> held;
};
Holdings ReadHoldings(database::Connection& connection, const Scope& scope);

/// The gains of the year, of the clients of the scope that have any.
std::vector<ClientGains> ReadGains(database::Connection& connection, const Scope& scope);

/// All figures, from what is kept; clients whose figures were never computed do not count in them.
/// Throws DatabaseError.
Figures ReadFigures(database::Connection& connection, const Scope& scope);

}  // namespace quorvane::home
