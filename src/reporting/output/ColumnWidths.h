#pragma once

#include "core/Progress.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/output/Typesetter.h"

#include <string>
#include <vector>

namespace quorvane::reporting {

/// The widths that a table's columns need, for type of size 1.
struct Widths {
  std::vector<double> widths;    ///< with long texts broken
  std::vector<double> headings;  ///< with the heading in one line
  std::vector<bool> bends;       ///< texts, which can be broken further
  double insets = 0;             ///< how many columns stand apart from the one before
};

/// Measures the columns of one table after the other by their headings and by every cell. Throws
/// Cancellation.
class ColumnMeasurer {
 public:
  ColumnMeasurer(Typesetter& typesetter, Progress& progress)
      : typesetter_(typesetter), progress_(progress) {}

  Widths Measure(const Table& table);

 private:
  double LongestWord(const QString& heading);
  void MeasureHeadings(const Table& table, Widths& measured);
  void MeasureRow(const Table& table, const Row& row, Widths& measured);
  void WidenForGroups(const Table& table, Widths& measured);

  Typesetter& typesetter_;
  Progress& progress_;
  std::string text_;
  std::int64_t done_ = 0;
};

}  // namespace quorvane::reporting
