#pragma once

#include "core/database/Transaction.h"
#include "masters/clients/Client.h"

#include <cstdint>
#include <vector>

namespace quorvane::clients {

/// How many records name a demat account.
struct AccountUse {
  std::int64_t bills = 0;
  std::int64_t openings = 0;
  std::int64_t transfers = 0;
  std::int64_t lots = 0;

  bool IsNone() const { return bills + openings + transfers + lots == 0; }
};

/// One query. No record names a new account.
AccountUse RecordsNaming(database::Connection& connection, AccountId account);

/// What is asked before an account is removed that records name.
QString AskRemoveAccount(const AccountUse& use);

/// The client's accounts by id.
std::vector<Account> ReadAccounts(database::Connection& connection, ClientId client);

/// Replaces the accounts of a client by these; blank ones are left out. Stored ones keep their ids.
/// A new one may have the participant and number of an account that is removed now, or that was
/// removed while records named it: it gets the id of that account, and so its records. Other new
/// ones get new ids.
void ReplaceAccounts(database::Transaction& transaction, Client& client);

}  // namespace quorvane::clients
