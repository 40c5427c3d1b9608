#pragma once

#include "core/Ids.h"
#include "core/database/Connection.h"
#include "core/lookups/Choices.h"

#include <QString>

#include <vector>

namespace quorvane::transfers {

/// The accounts of every other client as "NAME - number", by name and number: a transfer must not
/// go to the wrong client because two account numbers look alike.
std::vector<lookups::Item> AccountsOfOtherClients(database::Connection& connection,
                                                  ClientId client);

/// A grid's choice list of the clients' names.
QString ClientChoiceList(database::Connection& connection);

}  // namespace quorvane::transfers
