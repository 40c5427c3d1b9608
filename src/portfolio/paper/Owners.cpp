#include "portfolio/paper/Owners.h"

#include "core/records/Masters.h"
#include "core/records/Query.h"

#include <algorithm>
#include <cctype>
#include <unordered_map>

namespace quorvane::paper {
namespace {

std::string Plain(const QString& number) {
  std::string plain;
  for (const char one : number.toUpper().toStdString()) {
    if (std::isalnum(static_cast<unsigned char>(one)) != 0) {
      plain += one;
    }
  }
  return plain;
}

/// How surely a paper's number means the account.
enum Likeness { kNo, kClientPart, kWithoutParticipant, kWhole };

Likeness LikenessOf(const OwnAccount& account, const std::string& number) {
  if (account.number.empty()) {
    return kNo;
  }
  if (account.number == number || account.dp_id + account.number == number) {
    return kWhole;
  }
  const bool ends = number.size() > account.number.size() && number.ends_with(account.number);
  if (ends && account.dp_id.empty() && account.number.size() >= 8) {
    return kWithoutParticipant;
  }
  // A paper that gives the part of the client alone.
  return number.size() == 8 && account.number.ends_with(number) ? kClientPart : kNo;
}

const OwnAccount* Best(std::span<const OwnAccount> accounts, const std::string& number,
                       const auto& counts, Likeness least) {
  const OwnAccount* best = nullptr;
  Likeness most = kNo;
  bool several = false;
  for (const OwnAccount& account : accounts) {
    const Likeness likeness = counts(account) ? LikenessOf(account, number) : kNo;
    if (likeness > most) {
      best = &account;
      most = likeness;
      several = false;
    } else if (likeness == most && most != kNo) {
      several = true;
    }
  }
  return most >= least && !several ? best : nullptr;
}

}  // namespace

std::vector<OwnAccount> ReadAccounts(database::Connection& connection) {
  std::unordered_map<int, std::string> dp_ids;
  for (const records::DpId& dp_id : records::Select<records::DpId>(connection).All()) {
    dp_ids.emplace(dp_id.id.value, Plain(dp_id.number));
  }
  std::vector<OwnAccount> accounts;
  for (const records::Account& account :
       records::Select<records::Account>(connection).OrderBy(&records::Account::id).All()) {
    const auto dp_id = dp_ids.find(account.dp_id.value);
    accounts.push_back({account.id, account.client, Plain(account.number),
                        dp_id == dp_ids.end() ? std::string() : dp_id->second, account.number});
  }
  return accounts;
}

const OwnAccount* AccountNamed(std::span<const OwnAccount> accounts, ClientId client,
                               const std::string& number) {
  return Best(
      accounts, number, [&](const OwnAccount& account) { return account.client == client; },
      kClientPart);
}

const OwnAccount* AccountOfAnother(std::span<const OwnAccount> accounts, ClientId client,
                                   const std::string& number) {
  return Best(
      accounts, number, [&](const OwnAccount& account) { return account.client != client; },
      kWhole);
}

}  // namespace quorvane::paper
