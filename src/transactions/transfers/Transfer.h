#pragma once

#include "core/Result.h"
#include "core/records/Transfer.h"

namespace quorvane::transfers {

using records::Transfer;
using text::Shares;

/// The first rule that the transfer breaks: date (a day of the year: no statement of another year
/// would show the transfer), from-account, to-account (which must be another one), lot, quantity.
MaybeRefusal CheckTransfer(const Transfer& transfer, text::FinancialYear year);

/// The quantity against the lot's balance.
MaybeRefusal CheckBalance(Shares quantity, Shares balance);

/// What is said when there is no account to transfer to, or no lot to transfer.
Refusal NoDestination();
Refusal NoLot();

}  // namespace quorvane::transfers
