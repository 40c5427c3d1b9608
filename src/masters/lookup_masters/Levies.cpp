#include "masters/lookup_masters/Levies.h"

#include "core/text/Amounts.h"

#include <algorithm>
#include <chrono>

namespace quorvane::lookup_masters {
namespace {

/// How many days of the year the levy holds; `until` is the day before which it does.
int DaysIn(text::FinancialYear year, text::Date from, text::Date until) {
  const text::Date first = std::max(from, year.FirstDay());
  const text::Date end = std::min(until, year.LastDay() + std::chrono::days(1));
  return std::max(0, static_cast<int>((end - first).count()));
}

std::vector<Levy> OfKind(const std::vector<Levy>& levies, const QString& kind) {
  std::vector<Levy> own;
  std::ranges::copy_if(levies, std::back_inserter(own),
                       [&](const Levy& levy) { return levy.kind == kind; });
  std::ranges::sort(own, {}, &Levy::from);
  return own;
}

YearLevy InYear(const std::vector<Levy>& own, text::FinancialYear year) {
  YearLevy found{.year = year, .levy = own.front()};
  int most = 0;
  for (std::size_t i = 0; i < own.size(); ++i) {
    const text::Date until =
        i + 1 < own.size() ? own[i + 1].from : year.LastDay() + std::chrono::days(1);
    const int days = DaysIn(year, own[i].from, until);
    found.changed = found.changed || (days > 0 && most > 0);
    if (days > most) {
      most = days;
      found.levy = own[i];
    }
  }
  return found;
}

QString AsOn(const YearLevy& levy) {
  return text::FormatDmy(std::max(levy.levy.from, levy.year.FirstDay()));
}

}  // namespace

std::vector<YearLevy> LeviesByYear(const std::vector<Levy>& levies, text::FinancialYear last) {
  std::vector<YearLevy> by_year;
  for (const QString& kind : PercentageKinds()) {
    const std::vector<Levy> own = OfKind(levies, kind);
    if (own.empty()) {
      continue;
    }
    for (auto year = text::FinancialYear::Of(own.front().from); year <= last; year = year.Next()) {
      by_year.push_back(InYear(own, year));
    }
  }
  return by_year;
}

std::vector<LookupRow> RowsOf(LookupKind kind, const std::vector<YearLevy>& levies) {
  std::vector<LookupRow> rows;
  for (const YearLevy& levy : levies) {
    const QString percent = text::NumberText(levy.levy.percent);
    if (kind == LookupKind::kTaxPercentages) {
      rows.push_back({0, {levy.year.Text(), levy.levy.kind, percent, AsOn(levy)}});
    } else if (levy.levy.kind.startsWith(QLatin1String("STT"))) {
      rows.push_back({0, {percent}});
    }
  }
  return rows;
}

}  // namespace quorvane::lookup_masters
