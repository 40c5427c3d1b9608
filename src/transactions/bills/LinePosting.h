#pragma once

#include "transactions/bills/Bill.h"
#include "transactions/posting/LotSheet.h"

#include <span>

namespace quorvane::bills {

/// What bill lines do to the lots of their account. A purchase goes into the lot of its scrip and
/// rate, a sale comes off the lot that it names; a sale that names none moves no lot.

/// Posts the lines and sets the lot that each purchase landed in. Purchases are posted first, so a
/// sale may draw on a purchase of the same bill: it names the lot by the number that the purchase
/// line had when it was entered, and follows it when the purchase lands in a lot of another number.
/// When that number belongs to another lot by now, or two purchases had it that landed in different
/// lots, nobody can tell which lot was meant: the sale then draws on none and shows as a shortage.
void PostLines(posting::LotSheet& sheet, const posting::Place& place, std::span<BillLine> lines);

/// Undoes PostLines for lines as they were recorded.
void ReverseLines(posting::LotSheet& sheet, const posting::Place& place,
                  std::span<const BillLine> lines);

}  // namespace quorvane::bills
