#include "core/lookups/Directory.h"

#include "core/records/Masters.h"
#include "core/records/Query.h"

#include <QString>

#include <algorithm>

namespace quorvane::lookups {
namespace {

template <class Entry, class Key>
const Entry& ById(const std::vector<Entry>& entries,
                  const std::unordered_map<Key, std::size_t>& index, Key id) {
  static const Entry kUnknown;
  const auto found = index.find(id);
  return found == index.end() ? kUnknown : entries[found->second];
}

template <class Entry>
const Entry* ByText(const std::vector<Entry>& entries,
                    const std::unordered_map<std::string, std::size_t>& index,
                    std::string_view text) {
  const auto found = index.find(Folded(text));
  return found == index.end() ? nullptr : &entries[found->second];
}

}  // namespace

std::string Folded(std::string_view utf8) {
  while (utf8.ends_with(' ')) {
    utf8.remove_suffix(1);
  }
  std::string folded(utf8);
  const bool ascii = std::all_of(utf8.begin(), utf8.end(),
                                 [](char c) { return static_cast<signed char>(c) >= 0; });
  if (!ascii) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()))
        .toCaseFolded()
        .toStdString();
  }
  for (char& c : folded) {
    c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return folded;
}

Directory::Directory(database::Connection& connection) {
  using records::Account;
  using records::Client;
  using records::Scrip;
  records::Select<Client>(connection)
      .OrderBy(&Client::code)
      .OrderBy(&Client::id)
      .Only<&Client::id, &Client::code, &Client::name>([this](const Client& client) {
        clients_.push_back({client.id, client.code.toStdString(), client.name.toStdString()});
        client_by_id_.try_emplace(client.id, clients_.size() - 1);
        client_by_code_.try_emplace(Folded(clients_.back().code), clients_.size() - 1);
      });
  records::Select<Account>(connection)
      .OrderBy(&Account::number)
      .OrderBy(&Account::id)
      .Only<&Account::id, &Account::client, &Account::number>([this](const Account& account) {
        accounts_.push_back({account.id, account.client, account.number.toStdString()});
        account_by_id_.try_emplace(account.id, accounts_.size() - 1);
        account_by_number_.emplace(Folded(accounts_.back().number), accounts_.size() - 1);
      });
  records::Select<Scrip>(connection)
      .OrderBy(&Scrip::name)
      .OrderBy(&Scrip::id)
      .Only<&Scrip::id, &Scrip::code, &Scrip::name>([this](const Scrip& scrip) {
        scrips_.push_back({scrip.id, scrip.code.toStdString(), scrip.name.toStdString()});
        scrip_by_id_.try_emplace(scrip.id, scrips_.size() - 1);
        scrip_by_code_.try_emplace(Folded(scrips_.back().code), scrips_.size() - 1);
      });
}

const ClientEntry& Directory::Client(ClientId id) const {
  return ById(clients_, client_by_id_, id);
}

const AccountEntry& Directory::Account(AccountId id) const {
  return ById(accounts_, account_by_id_, id);
}

const ScripEntry& Directory::Scrip(ScripId id) const {
  return ById(scrips_, scrip_by_id_, id);
}

const ClientEntry* Directory::FindClient(std::string_view code) const {
  return ByText(clients_, client_by_code_, code);
}

const ScripEntry* Directory::FindScrip(std::string_view code) const {
  return ByText(scrips_, scrip_by_code_, code);
}

const AccountEntry* Directory::FindAccount(ClientId client, std::string_view number) const {
  for (const AccountEntry* account : FindAccounts(number)) {
    if (account->client == client) {
      return account;
    }
  }
  return nullptr;
}

std::vector<const AccountEntry*> Directory::FindAccounts(std::string_view number) const {
  std::vector<const AccountEntry*> found;
  const auto [first, last] = account_by_number_.equal_range(Folded(number));
  for (auto it = first; it != last; ++it) {
    found.push_back(&accounts_[it->second]);
  }
  return found;
}

}  // namespace quorvane::lookups
