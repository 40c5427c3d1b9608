#include "portfolio/AccountImport.h"

#include "portfolio/MasterRecords.h"

#include <set>

namespace quorvane::portfolio {

using records::Account;
using records::DpId;

void AccountImport::ImportDpIds(std::span<const DpIdRow> rows) {
  for (const DpId& dp_id : AllRecords<DpId>(transaction_)) {
    dp_ids_.try_emplace({dp_id.participant, Folded(dp_id.number)}, dp_id.id);
  }
  NewRecords<DpId> fresh(transaction_);
  for (const DpIdRow& row : rows) {
    const auto participant = participants_.find(row.participant);
    if (row.dp_id.isEmpty() || participant == participants_.end()) {
      continue;
    }
    DpId dp_id{ParticipantId{participant->second}, {}, row.dp_id};
    const auto [entry, is_new] =
        dp_ids_.try_emplace({dp_id.participant, Folded(dp_id.number)}, DpIdId{});
    if (is_new) {
      fresh.Add(dp_id);
      entry->second = dp_id.id;
    }
  }
  fresh.Finish();
}

std::size_t AccountImport::ImportAccounts(std::span<const AccountRow> rows,
                                          std::span<const ClientId> clients) {
  std::map<std::pair<ClientId, std::string>, Account> existing;
  for (const Account& account : AllRecords<Account>(transaction_)) {
    existing.try_emplace({account.client, Folded(account.number)}, account);
  }
  NewRecords<Account> fresh(transaction_);
  std::set<std::pair<ClientId, std::string>> seen;
  for (const AccountRow& row : rows) {
    auto account = AccountOf(row, clients);
    if (!account) {
      continue;
    }
    const std::pair<ClientId, std::string> key{account->client, Folded(account->number)};
    const auto old = existing.find(key);
    if (!seen.insert(key).second) {
      errors_.Add(FileKind::kAccounts, row.line, "account_no", "stands in this file already");
    } else if (old == existing.end()) {
      fresh.Add(*account);
    } else if (!HasDetailsOf(old->second, *account)) {
      errors_.Add(FileKind::kAccounts, row.line, "account_no",
                  "the account is recorded with another participant or DP id");
    }
  }
  return fresh.Finish();
}

std::optional<Account> AccountImport::AccountOf(const AccountRow& row,
                                                std::span<const ClientId> clients) {
  const auto participant = participants_.find(row.participant);
  if (participant == participants_.end()) {
    errors_.Add(FileKind::kAccounts, row.line, "participant",
                "expected a participant's name; this one is not known");
    return std::nullopt;
  }
  const ParticipantId keeper{participant->second};
  const auto dp_id = DpIdOf(keeper, row);
  const ClientId client = clients[row.client];
  if (!dp_id || !client) {
    return std::nullopt;
  }
  return Account{client, {}, keeper, *dp_id, row.number};
}

std::optional<DpIdId> AccountImport::DpIdOf(ParticipantId participant, const AccountRow& row) {
  if (row.dp_id.isEmpty()) {
    return DpIdId{};
  }
  const auto found = dp_ids_.find({participant, Folded(row.dp_id)});
  if (found == dp_ids_.end()) {
    errors_.Add(FileKind::kAccounts, row.line, "dp_id",
                "expected a DP id of the participant, found " + Quoted(row.dp_id.toStdString()));
    return std::nullopt;
  }
  return found->second;
}

}  // namespace quorvane::portfolio
