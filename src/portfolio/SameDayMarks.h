#pragma once

#include "core/database/Transaction.h"
#include "portfolio/SameDay.h"

#include <vector>

namespace quorvane::portfolio {

/// Marks recorded lines as without delivery, as parts of a transaction that takes new bills in.
class SameDayMarks {
 public:
  SameDayMarks(const DayOwner& owner, std::vector<DayMark> marks)
      : owner_(owner), marks_(std::move(marks)) {}

  /// Before the new bills are read: marks the lines of the earliest bills first and divides the one
  /// of which only a part is marked, with its charges. Lots stay as they are.
  void Mark(database::Transaction& transaction) const;

  /// After the new bills were written: what was sold without delivery draws on what was bought
  /// without delivery on that day, no longer on older lots.
  void Redraw(database::Transaction& transaction) const;

 private:
  DayOwner owner_;
  std::vector<DayMark> marks_;
};

}  // namespace quorvane::portfolio
