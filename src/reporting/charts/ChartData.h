#pragma once

#include "reporting/document/ReportDocument.h"

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

}  // namespace quorvane::charts
