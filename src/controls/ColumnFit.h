#pragma once

#include "controls/GridModel.h"

#include <QTableView>

#include <vector>

namespace quorvane::controls {

/// The least width of a column, in pixels.
inline constexpr int kNarrowestColumn = 40;

/// Fits the widths of a list's columns to their headings and to a sample of the rows. What is left
/// over is the widest text's; where a little is missing it gives that, so that every figure is in
/// sight. While there are no rows all texts share what is left over.
class ColumnFit {
 public:
  ColumnFit(QTableView& list, const GridModel& model) : list_(list), model_(model) {}

  void Apply();

 private:
  int WidthOf(int column) const;
  std::vector<int> Texts() const;
  void GiveTo(int column, int more);

  QTableView& list_;
  const GridModel& model_;
};

}  // namespace quorvane::controls
