#include "masters/clients/AccountBook.h"

#include "core/database/Keys.h"
#include "core/lookups/Directory.h"
#include "core/records/StatementCheck.h"
#include "core/records/Writing.h"
#include "core/text/Tr.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace quorvane::clients {
namespace {

using database::Connection;
using database::Transaction;

/// By what an account is known again.
using Identity = std::pair<ParticipantId, std::string>;

Identity IdentityOf(ParticipantId participant, const QString& number) {
  return {participant, lookups::Folded(number.trimmed().toStdString())};
}

/// Accounts of the client that a new row may be one of: removed along with this save or before it.
using Removed = std::map<Identity, AccountId>;

std::set<AccountId> StoredIds(Transaction& transaction, ClientId client) {
  std::set<AccountId> ids;
  for (const auto& row :
       transaction.Open("Select id From ClientActDet Where CId=? For Update", client)) {
    ids.insert(AccountId{row.Int(0)});
  }
  return ids;
}

Removed ReadRemoved(Transaction& transaction, const Client& client) {
  const auto is_kept = [&](AccountId id) {
    return std::ranges::any_of(client.accounts,
                               [id](const Account& account) { return account.id == id; });
  };
  Removed removed;
  for (const auto& row :
       transaction.Open("Select id,DMATAC,ACNo From ClientActDet Where CId=? Union All "
                        "Select id,DMATAC,ACNo From RemovedAccount Where CId=? Order By id",
                        client.id, client.id)) {
    if (const AccountId id{row.Int(0)}; !is_kept(id)) {
      removed.try_emplace(IdentityOf(ParticipantId{row.Int(1)}, row.Text(2)), id);
    }
  }
  return removed;
}

void NumberAccounts(Transaction& transaction, const std::set<AccountId>& stored, Client& client) {
  Removed removed = ReadRemoved(transaction, client);
  int next = database::FirstFreeKey(transaction, "ClientActDet");
  std::set<AccountId> given;
  for (Account& account : client.accounts) {
    if (stored.contains(account.id) && given.insert(account.id).second) {
      continue;
    }
    const auto found = removed.find(IdentityOf(account.participant, account.number));
    account.id = found == removed.end() ? AccountId{next++} : found->second;
    if (found != removed.end()) {
      removed.erase(found);
    }
  }
  database::KeepKeys(transaction, "ClientActDet", next);
}

/// The stored accounts that are not among the client's any more and that records name are kept
/// aside.
void KeepRemoved(Transaction& transaction, std::set<AccountId> gone, const Client& client) {
  for (const Account& account : client.accounts) {
    gone.erase(account.id);
  }
  for (const AccountId id : gone) {
    if (RecordsNaming(transaction.GetConnection(), id).IsNone()) {
      continue;
    }
    const auto account = records::Select<records::Account>(transaction.GetConnection())
                             .Where(&records::Account::id, id)
                             .First();
    if (account) {
      records::Replace(transaction, *account, records::kRemovedAccounts);
    }
  }
}

/// Comparisons with statements go with their account.
void DeleteChecks(Transaction& transaction, std::set<AccountId> gone,
                  std::span<const AccountId> kept) {
  for (const AccountId account : kept) {
    gone.erase(account);
  }
  const std::vector<AccountId> accounts(gone.begin(), gone.end());
  records::DeleteNaming(transaction, &records::StatementCheck::account, accounts);
}

}  // namespace

AccountUse RecordsNaming(Connection& connection, AccountId account) {
  auto rows = connection.Open(
      "Select (Select Count(*) From SPMaster R Where R.Cid=A.CId and R.AcId=A.id),"
      "(Select Count(*) From StkOpBal R Where R.CId=A.CId and R.AcId=A.id),"
      "(Select Count(*) From ScrTransfer R Where R.FrmAcId=A.id or R.ToAcId=A.id),"
      "(Select Count(*) From Stock R Where R.Cid=A.CId and R.AcId=A.id) "
      "From ClientActDet A Where A.id=? Limit 1",
      account);
  if (!rows.Next()) {
    return {};
  }
  return {rows.Int64(0), rows.Int64(1), rows.Int64(2), rows.Int64(3)};
}

QString AskRemoveAccount(const AccountUse& use) {
  return Tr("Clients",
            "%1 bills, %2 opening rows, %3 transfers and %4 lots name this Demat A/c. They belong "
            "to it again when its number is entered again. Remove it?")
      .arg(use.bills)
      .arg(use.openings)
      .arg(use.transfers)
      .arg(use.lots);
}

std::vector<Account> ReadAccounts(Connection& connection, ClientId client) {
  std::vector<Account> accounts;
  for (const auto& row : connection.Open(
           "Select id,DMATAC,DPID,ACNo From ClientActDet Where CId=? Order By id", client)) {
    accounts.push_back(
        {AccountId{row.Int(0)}, ParticipantId{row.Int(1)}, DpIdId{row.Int(2)}, row.Text(3)});
  }
  return accounts;
}

void ReplaceAccounts(Transaction& transaction, Client& client) {
  std::erase_if(client.accounts, IsBlank);
  const std::set<AccountId> stored = StoredIds(transaction, client.id);
  NumberAccounts(transaction, stored, client);
  KeepRemoved(transaction, stored, client);
  records::Delete<records::Account>(transaction).Where(&records::Account::client, client.id).Run();
  std::vector<records::Account> rows;
  std::vector<AccountId> kept;
  for (const Account& account : client.accounts) {
    rows.push_back({client.id, account.id, account.participant, account.dp_id, account.number});
    kept.push_back(account.id);
  }
  records::Insert(transaction, std::span<const records::Account>(rows));
  records::Delete<records::Account>(transaction, records::kRemovedAccounts)
      .Where(&records::Account::client, client.id)
      .In(&records::Account::id, kept)
      .Run();
  DeleteChecks(transaction, stored, kept);
}

}  // namespace quorvane::clients
