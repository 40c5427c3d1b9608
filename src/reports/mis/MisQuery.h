#pragma once

#include "core/Ids.h"
#include "core/text/FinancialYear.h"
#include "reporting/period/Period.h"

#include <cstdint>
#include <optional>
#include <unordered_set>
#include <vector>

namespace quorvane::mis {

using text::Date;

/// The management reports.
enum class ReportKind : std::uint8_t {
  kPosition,    ///< what was held, came in and left, and what it cost
  kValuation,   ///< what is held, at market rates
  kMarket,      ///< what is held: its cost beside its market value
  kProfitLoss,  ///< what came in and left, and what the sales gained
  kStock,       ///< what is held, at cost
};

/// The order of grouping.
enum class Grouping : std::uint8_t { kScrip, kAccount, kClient };

/// True for the reports of what is held on one day.
constexpr bool IsOfOneDay(ReportKind kind) {
  return kind == ReportKind::kValuation || kind == ReportKind::kMarket ||
         kind == ReportKind::kStock;
}

/// True for the reports that need market rates.
constexpr bool NeedsRates(ReportKind kind) {
  return kind == ReportKind::kValuation || kind == ReportKind::kMarket;
}

struct MisQuery {
  ReportKind kind = ReportKind::kPosition;
  Grouping grouping = Grouping::kScrip;
  bool detail = true;  ///< a line a movement or a lot; otherwise a line a scrip
  text::FinancialYear year;
  reporting::Period period;
  std::optional<Date> as_on = {};        ///< of a report of one day; else the period's last day
  std::vector<ClientId> clients = {};    ///< all when empty
  std::vector<AccountId> accounts = {};  ///< all when empty
  std::vector<ScripId> scrips = {};      ///< all when empty

  /// The day whose holdings and rates a report of one day shows.
  Date ValuedOn() const { return as_on.value_or(period.to); }

  /// The whole of a year.
  static MisQuery OfYear(ReportKind kind, Grouping grouping, text::FinancialYear year) {
    return {
        .kind = kind, .grouping = grouping, .year = year, .period = reporting::Period::Of(year)};
  }
};

/// The clients, accounts and scrips of a query, for fast look-up.
class Selection {
 public:
  explicit Selection(const MisQuery& query)
      : clients_(query.clients.begin(), query.clients.end()),
        accounts_(query.accounts.begin(), query.accounts.end()),
        scrips_(query.scrips.begin(), query.scrips.end()) {}

  bool Has(ClientId client, AccountId account, ScripId scrip) const {
    return Holds(clients_, client) && Holds(accounts_, account) && Holds(scrips_, scrip);
  }

  /// The client when there is only one: records of others need not be read then.
  std::optional<ClientId> OnlyClient() const {
    return clients_.size() == 1 ? std::optional(*clients_.begin()) : std::nullopt;
  }

 private:
  template <class Id>
  static bool Holds(const std::unordered_set<Id>& chosen, Id one) {
    return chosen.empty() || chosen.contains(one);
  }

  std::unordered_set<ClientId> clients_;
  std::unordered_set<AccountId> accounts_;
  std::unordered_set<ScripId> scrips_;
};

}  // namespace quorvane::mis
