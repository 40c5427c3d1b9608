#pragma once

#include "core/Ids.h"
#include "core/Result.h"
#include "core/database/Connection.h"
#include "core/lookups/Choices.h"
#include "core/records/Transfer.h"

#include <QString>

#include <vector>

namespace quorvane::transfers {

using records::Transfer;
using text::Shares;

/// The first rule that the transfer breaks: date (a day of the year: no statement of another year
/// would show the transfer), from-account, to-account (which must be another one), lot, quantity.
MaybeRefusal CheckTransfer(const Transfer& transfer, text::FinancialYear year);

/// Refuses a quantity above the lot's balance.
MaybeRefusal CheckBalance(Shares quantity, Shares balance);

/// What is said when there is no account to transfer to, or no lot to transfer.
Refusal NoDestination();
Refusal NoLot();

/// The accounts of every other client as "NAME - number", by name and number: a transfer must not
/// go to the wrong client because two account numbers look alike.
std::vector<lookups::Item> AccountsOfOtherClients(database::Connection& connection,
                                                  ClientId client);

/// A grid's choice list of the clients' names.
QString ClientChoiceList(database::Connection& connection);

}  // namespace quorvane::transfers
