#pragma once

#include "core/database/Connection.h"
#include "core/lookups/Choices.h"
#include "core/text/FinancialYear.h"

#include <QStringList>

#include <vector>

namespace quorvane::mis {

/// What the window of the management reports offers to choose and to tick; each list in one query.

/// The names of the client groups, in their order; clients of no group are in none of them.
QStringList ClientGroups(database::Connection& connection);

/// Every client, or those of a group, by name.
std::vector<lookups::Item> AllClients(database::Connection& connection);
std::vector<lookups::Item> ClientsOfGroup(database::Connection& connection, const QString& group);

/// The group of a client; empty without one.
QString GroupOfClient(database::Connection& connection, ClientId client);

struct AccountItem {
  AccountId id;
  QString number;
  ClientId client;  ///< whose it is
};

/// The demat accounts of the clients, by number.
std::vector<AccountItem> AccountsOfClients(database::Connection& connection,
                                           const std::vector<ClientId>& clients);

/// The scrips of which the clients have lots, or opening stock or bill lines of the year, by name.
std::vector<lookups::Item> ScripsOfClients(database::Connection& connection,
                                           const std::vector<ClientId>& clients,
                                           text::FinancialYear year);

}  // namespace quorvane::mis
