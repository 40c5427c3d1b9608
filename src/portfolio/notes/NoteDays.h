#pragma once

#include "portfolio/notes/NoteBook.h"

#include <vector>

namespace quorvane::notes {

/// Makes the bills of those notes that can be taken in: what they buy and sell on one day with one
/// broker is without delivery. The remarks tell where recorded bills of the day have the other
/// side.
void MatchDays(database::Connection& connection, const NoteQuery& query,
               std::vector<PlannedNote>& notes);

}  // namespace quorvane::notes
