#pragma once

#include "transactions/corporate_actions/ActionList.h"

#include <span>
#include <vector>

namespace quorvane::corporate_actions {

/// A row of the list and the number of the row of the files that it was read from: what one row
/// tells is never doubled by itself.
struct NumberedAction {
  ListedAction listed;
  std::size_t row = 0;
};

/// Marks new actions that another one says as fully or more fully, the earlier one staying; and
/// dividends of an exchange whose sum of a day is that of an exchange listed before.
void MarkDoubled(std::vector<NumberedAction>& rows);

/// Marks new actions that are recorded, with their open points filled in whatever way.
void MarkRecorded(std::vector<NumberedAction>& rows, std::span<const Action> recorded);

}  // namespace quorvane::corporate_actions
