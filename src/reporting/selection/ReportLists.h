#pragma once

#include "core/ClientYear.h"
#include "core/database/Connection.h"
#include "core/gains/History.h"
#include "core/lookups/Choices.h"

#include <set>
#include <vector>

namespace quorvane::reporting {

/// What a report window offers to tick: keys with their texts, each list in one query.

/// The client's demat accounts, by number.
std::vector<lookups::Item> AccountsByNumber(database::Connection& connection, ClientId client);

/// The scrips of which the client has lots, opening stock or bill lines, by name. Opening stock and
/// bill lines count in the year, and with a choice of futures and options only if they belong to
/// it; lots carry no such mark and count unless futures and options are asked for alone.
std::vector<lookups::Item> ScripsOfClient(database::Connection& connection, const ClientYear& of,
                                          gains::FoChoice fo = gains::FoChoice::kAll);

/// The scrips that the clients ever had, by name.
std::vector<lookups::Item> ScripsEverHeld(database::Connection& connection,
                                          const std::set<ClientId>& clients);

/// The client and those of the same group; the client alone without a group.
std::set<ClientId> FamilyOf(database::Connection& connection, ClientId client);

/// The clients of a group, by its code without regard to capitals; empty when there is none.
std::set<ClientId> ClientsOfGroup(database::Connection& connection, const QString& group);

/// Every scrip, by name.
std::vector<lookups::Item> AllScrips(database::Connection& connection);

}  // namespace quorvane::reporting
