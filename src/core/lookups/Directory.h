#pragma once

#include "core/Ids.h"
#include "core/database/Connection.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quorvane::lookups {

/// A text as names are compared: without regard to capitals and to blanks at its end.
std::string Folded(std::string_view utf8);

struct ClientEntry {
  ClientId id;
  std::string code;
  std::string name;
};

struct AccountEntry {
  AccountId id;
  ClientId client;
  std::string number;
};

struct ScripEntry {
  ScripId id;
  std::string code;
  std::string name;
};

/// The names behind the keys, all read at once, for work that shows or reads many of them. UTF-8.
/// It is a copy of that moment. A key that no master knows reads as an empty entry.
class Directory {
 public:
  explicit Directory(database::Connection& connection);

  const ClientEntry& Client(ClientId id) const;
  const AccountEntry& Account(AccountId id) const;
  const ScripEntry& Scrip(ScripId id) const;

  const ClientEntry* FindClient(std::string_view code) const;
  const ScripEntry* FindScrip(std::string_view code) const;

  /// The client's account of that number.
  const AccountEntry* FindAccount(ClientId client, std::string_view number) const;

  /// Every account of that number, of every client.
  std::vector<const AccountEntry*> FindAccounts(std::string_view number) const;

  const std::vector<ClientEntry>& Clients() const { return clients_; }     ///< by code
  const std::vector<AccountEntry>& Accounts() const { return accounts_; }  ///< by number

 private:
  std::vector<ClientEntry> clients_;
  std::vector<AccountEntry> accounts_;
  std::vector<ScripEntry> scrips_;
  std::unordered_map<ClientId, std::size_t> client_by_id_;
  std::unordered_map<AccountId, std::size_t> account_by_id_;
  std::unordered_map<ScripId, std::size_t> scrip_by_id_;
  std::unordered_map<std::string, std::size_t> client_by_code_;
  std::unordered_map<std::string, std::size_t> scrip_by_code_;
  std::unordered_multimap<std::string, std::size_t> account_by_number_;
};

}  // namespace quorvane::lookups
