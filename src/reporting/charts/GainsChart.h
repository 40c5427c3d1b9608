#pragma once

#include "core/gains/Matching.h"
#include "reporting/charts/ChartData.h"
#include "reporting/period/Period.h"

namespace quorvane::charts {

/// The gains of a period by month and kind: speculation, short term, long term.
class GainsChart {
 public:
  explicit GainsChart(const reporting::Period& period);

  /// A gain in paise, by the day of the sale. What lies outside the period is passed over.
  void Add(text::Date sale, gains::GainKind kind, std::int64_t paise);

  ChartData Take();

 private:
  int first_month_;  ///< months since the year 0
  ChartData chart_;
};

/// A month as charts name it: "Apr 2011".
QString MonthName(text::Date date);

}  // namespace quorvane::charts
