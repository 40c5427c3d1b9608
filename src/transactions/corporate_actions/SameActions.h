#pragma once

#include "transactions/corporate_actions/ActionList.h"

#include <span>
#include <vector>

namespace quorvane::corporate_actions {

/// A row of the list and the number of the row of the files that it was read from: actions of one
/// row are never doubles of each other.
struct NumberedAction {
  ListedAction listed;
  std::size_t row = 0;
};

/// Marks new actions that another row tells with the same or more terms; of equal ones the first
/// stays. Marks dividends of a day whose sum is that of an exchange listed before.
void MarkDoubled(std::vector<NumberedAction>& rows);

/// Marks new actions that are recorded, regardless of what was entered for their open points.
void MarkRecorded(std::vector<NumberedAction>& rows, std::span<const Action> recorded);

}  // namespace quorvane::corporate_actions
