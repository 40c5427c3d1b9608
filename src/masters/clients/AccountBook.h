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

/// One query. A new account is named by none.
AccountUse RecordsNaming(database::Connection& connection, AccountId account);

/// What is asked before an account is removed that records name.
QString AskRemoveAccount(const AccountUse& use);

/// The client's accounts by id.
std::vector<Account> ReadAccounts(database::Connection& connection, ClientId client);

/// Writes the accounts of a client in place of those there were; blank ones are left out. Stored
/// ones keep their ids. A new one of the same participant and number as one that is removed now, or
/// was removed while records named it, gets that one's id, so that the records are its own again;
/// the others get new ids.
void ReplaceAccounts(database::Transaction& transaction, Client& client);

}  // namespace quorvane::clients
