#pragma once

#include "core/ledger/Lots.h"
#include "core/records/Action.h"
#include "core/records/Bill.h"
#include "core/records/Opening.h"
#include "core/records/Transfer.h"

#include <span>

namespace quorvane::ledger {

// What each kind of record does to the lots. To put a record in the place of another, post the new
// one first and then take the old one back: only the quantities after both count (Lots::Shortage).

/// An opening lot adds its shares to the lot of its scrip and rate.
void Post(Lots& lots, const records::Opening& opening);
void TakeBack(Lots& lots, const records::Opening& opening);

/// A transfer takes its shares from the lot of its rate in one account and adds them to the lot of
/// that rate in the other one.
void Post(Lots& lots, const records::Transfer& transfer);
void TakeBack(Lots& lots, const records::Transfer& transfer);
Place SourceOf(const records::Transfer& transfer);
Place DestinationOf(const records::Transfer& transfer);

/// A lot of a corporate action takes its shares from the lot of the old rate and adds those that
/// came of them to the lot of the new one.
void Post(Lots& lots, const records::ActionLot& action);
void TakeBack(Lots& lots, const records::ActionLot& action);

/// A purchase goes into the lot of its scrip and rate, which it then names. A sale comes off the
/// lot that it names; one that names a lot without a number yet finds it by `lot_rate`, and one
/// that names none moves no lot. Purchases are posted first, so that a sale may draw on a purchase
/// of the same bill.
void PostLines(Lots& lots, const Place& place, std::span<records::BillLine> lines);
void TakeBackLines(Lots& lots, const Place& place, std::span<const records::BillLine> lines);

/// Gives the lines the numbers that their lots got when they were written.
void NumberLots(const Lots& lots, std::span<records::BillLine> lines);

}  // namespace quorvane::ledger
