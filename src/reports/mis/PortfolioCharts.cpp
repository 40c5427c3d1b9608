
#include "core/gains/History.h"
#include "core/text/Amounts.h"
#include "reporting/charts/ChartData.h"
#include "reports/mis/Holdings.h"
#include "reports/mis/MisQuery.h"
#include "reports/mis/MisReport.h"
#include "reports/mis/Names.h"
#include "reports/mis/ReportForm.h"

#include <algorithm>

namespace quorvane::mis {
namespace {

using charts::ChartData;
using charts::ChartKind;

std::int64_t ValueOf(const MarketRates& rates, ScripId scrip, double shares, std::int64_t cost) {
  const auto rate = rates.find(scrip);
  return rate == rates.end() ? cost : text::ToPaise(rate->second.rate * shares);
}

struct ScripValue {
  ScripId scrip;
  std::int64_t paise = 0;
};

/// The value of each scrip that has a rate, largest first; the others' names go to `unrated`.
std::vector<ScripValue> ValuesByScrip(const std::vector<Holding>& holdings,
                                      const MarketRates& rates, const Names& names,
                                      QStringList& unrated) {
  std::unordered_map<ScripId, std::int64_t> sums;
  for (const Holding& holding : holdings) {
    const auto rate = rates.find(holding.scrip);
    if (rate == rates.end()) {
      const QString name = names.Scrip(holding.scrip);
      if (!holding.lots.empty() && !unrated.contains(name)) {
        unrated << name;
      }
      continue;
    }
    for (const HeldLot& lot : holding.lots) {
      sums[holding.scrip] += text::ToPaise(rate->second.rate * lot.quantity);
    }
  }
  std::vector<ScripValue> values;
  values.reserve(sums.size());
  for (const auto& [scrip, paise] : sums) {
    values.push_back({scrip, paise});
  }
  std::ranges::sort(values, [](const ScripValue& a, const ScripValue& b) {
    return a.paise != b.paise ? a.paise > b.paise : a.scrip < b.scrip;
  });
  return values;
}

/// The last days of the months of the year up to and with the month of `until`; the last one is
/// `until` itself.
std::vector<Date> MonthEnds(text::FinancialYear year, Date until) {
  using std::chrono::months;
  using std::chrono::year_month_day;
  std::vector<Date> days;
  const year_month_day first(year.FirstDay());
  for (int month = 0; month < 12; ++month) {
    const auto next = first.year() / first.month() / std::chrono::day(1) + months(month + 1);
    const Date last = Date(next) - std::chrono::days(1);
    days.push_back(std::min(last, until));
    if (last >= until) {
      break;
    }
  }
  return days;
}

/// Adds up what is held at each of some days.
class MonthValues {
 public:
  MonthValues(std::vector<Date> days, database::Connection& connection)
      : days_(std::move(days)), values_(days_.size()), costs_(days_.size()) {
    for (const Date day : days_) {
      rates_.push_back(rates::RateBook(connection).NewestUpTo(day));
    }
  }

  void Take(const gains::ScripHistory& history) {
    for (std::size_t i = 0; i < days_.size(); ++i) {
      MatchUpTo(days_[i], history);
      for (const gains::Purchase& purchase : purchases_) {
        if (purchase.remaining > 0) {
          const std::int64_t cost = text::ToPaise(purchase.net * purchase.remaining);
          costs_[i] += cost;
          values_[i] += ValueOf(rates_[i], history.scrip, purchase.remaining, cost);
        }
      }
    }
  }

  const std::vector<Date>& Days() const { return days_; }
  const std::vector<std::int64_t>& Values() const { return values_; }
  const std::vector<std::int64_t>& Costs() const { return costs_; }

 private:
  void MatchUpTo(Date day, const gains::ScripHistory& history) {
    purchases_.clear();
    sales_.clear();
    matches_.clear();
    std::ranges::copy_if(history.purchases, std::back_inserter(purchases_),
                         [day](const gains::Purchase& purchase) {
                           return purchase.opening || purchase.date <= day;
                         });
    std::ranges::copy_if(history.sales, std::back_inserter(sales_),
                         [day](const gains::Sale& sale) { return sale.date <= day; });
    gains::MatchSales(purchases_, sales_, {}, gains::CostBasis::kLot, matches_);
  }

  std::vector<Date> days_;
  std::vector<MarketRates> rates_;
  std::vector<std::int64_t> values_;
  std::vector<std::int64_t> costs_;
  std::vector<gains::Purchase> purchases_;
  std::vector<gains::Sale> sales_;
  std::vector<gains::Match> matches_;
};

}  // namespace

ChartData Composition(database::Connection& connection, const MisQuery& query, int most,
                      Progress& progress) {
  const Date day = query.ValuedOn();
  const Names names(connection);
  const auto holdings =
      ReadHoldings(connection, query, {query.year.FirstDay(), day}, progress).holdings;
  QStringList unrated;
  const auto values =
      ValuesByScrip(holdings, rates::RateBook(connection).NewestUpTo(day), names, unrated);
  ChartData chart;
  chart.kind = ChartKind::kParts;
  chart.title = QStringLiteral("Composition");
  chart.subtitle = QStringLiteral("as on %1").arg(LongDate(day));
  chart.category_heading = QStringLiteral("Script");
  chart.series.push_back({QStringLiteral("Market Value"), {}});
  std::vector<std::int64_t>& parts = chart.series.front().paise;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (static_cast<int>(i) < most) {
      chart.categories << names.Scrip(values[i].scrip);
      parts.push_back(values[i].paise);
    } else if (static_cast<int>(i) == most) {
      chart.categories << QStringLiteral("Others");
      parts.push_back(values[i].paise);
    } else {
      parts.back() += values[i].paise;
    }
  }
  if (!unrated.isEmpty()) {
    unrated.sort();
    chart.notes << QStringLiteral("Without any market rate, and left out: %1")
                       .arg(unrated.join(QStringLiteral(", ")));
  }
  return chart;
}

ChartData ValueByMonth(database::Connection& connection, const MisQuery& query,
                       Progress& progress) {
  const Selection selection(query);
  gains::History history(
      connection, {selection.OnlyClient(), query.year, query.year.FirstDay(), query.period.to},
      progress);
  MonthValues values(MonthEnds(query.year, query.period.to), connection);
  history.Visit([&](const gains::ScripHistory& scrip) {
    if (selection.Has(scrip.client, scrip.account, scrip.scrip)) {
      values.Take(scrip);
    }
    progress.ThrowIfCancelled();
  });
  ChartData chart;
  chart.kind = ChartKind::kLines;
  chart.title = QStringLiteral("Value by month");
  chart.subtitle = QStringLiteral("Financial Year : ") + query.year.Text();
  chart.category_heading = QStringLiteral("End of");
  for (const Date day : values.Days()) {
    chart.categories << charts::MonthName(day);
  }
  chart.series = {{QStringLiteral("Market Value"), values.Values()},
                  {QStringLiteral("Cost"), values.Costs()}};
  chart.notes << QStringLiteral(
      "Valued at the newest rates up to each month's end; at cost where there is none.");
  return chart;
}

ChartData GainsByKind(database::Connection& connection, const MisQuery& query, Progress& progress) {
  return GainsByKind(ReadHoldings(connection, query, query.period, progress).holdings, query);
}

ChartData GainsByKind(std::span<const Holding> holdings, const MisQuery& query) {
  charts::GainsChart gains(query.period);
  for (const Holding& holding : holdings) {
    for (const Movement& movement : holding.movements) {
      if (movement.kind == Movement::Kind::kSale && movement.purchase_rate) {
        gains.Add(movement.date, movement.gain_kind, movement.gain);
      }
    }
  }
  ChartData chart = gains.Take();
  chart.subtitle = QStringLiteral("Financial Year : ") + query.year.Text();
  return chart;
}

}  // namespace quorvane::mis
