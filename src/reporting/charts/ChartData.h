#pragma once

#include "core/gains/Matching.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/period/Period.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace quorvane::charts {

enum class ChartKind : std::uint8_t {
  kParts,    ///< parts of a whole: one series
  kLines,    ///< series over time
  kStacked,  ///< series that add up at each category; may be negative
};

/// What a chart shows, and nothing about how. Money in paise.
struct ChartData {
  struct Series {
    QString name;
    std::vector<std::int64_t> paise;  ///< one a category
  };

  ChartKind kind = ChartKind::kParts;
  QString title;
  QString subtitle;          ///< of whom and when; may be empty
  QString category_heading;  ///< "Script", "Month"
  QStringList categories;
  std::vector<Series> series;
  QStringList notes;

  /// True when there is nothing to draw.
  bool IsEmpty() const;
};

/// The chart in words: a line a category with its amounts, parts with their share in per cent, and
/// the total of what adds up.
reporting::ReportDocument TableOf(const ChartData& chart);

/// The gains of a period by month and kind: speculation, short term, long term.
class GainsChart {
 public:
  explicit GainsChart(const reporting::Period& period);

  /// A gain in paise, by the day of the sale. A sale outside the period is passed over.
  void Add(text::Date sale, gains::GainKind kind, std::int64_t paise);

  ChartData Take();

 private:
  int first_month_;  ///< months since the year 0
  ChartData chart_;
};

/// A month as charts name it: "Apr 2011".
QString MonthName(text::Date date);

}  // namespace quorvane::charts
