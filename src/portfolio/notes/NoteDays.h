#pragma once

#include "portfolio/SameDay.h"
#include "portfolio/SameDayMarks.h"
#include "portfolio/notes/NoteBook.h"

#include <span>
#include <vector>

namespace quorvane::notes {

/// Makes the bills of those notes that can be taken in anew: what was bought and sold on one day is
/// without delivery over all of them and the recorded bills of the day. The remarks tell which
/// recorded shares are marked, too.
void MatchDays(database::Connection& connection, const NoteQuery& query,
               std::vector<PlannedNote>& notes);

/// The marks on recorded bills that notes call for when they are taken in, a broker each. Bills
/// that the notes replace are left out, or gone already.
std::vector<portfolio::SameDayMarks> MarksOf(database::Connection& connection,
                                             const NoteQuery& query,
                                             std::span<const PlannedNote> notes);

}  // namespace quorvane::notes
