#pragma once

#include "reports/mis/MisQuery.h"

#include <unordered_set>

namespace quorvane::mis {

/// The clients, accounts and scrips of a query, quick to ask.
class Selection {
 public:
  explicit Selection(const MisQuery& query)
      : clients_(query.clients.begin(), query.clients.end()),
        accounts_(query.accounts.begin(), query.accounts.end()),
        scrips_(query.scrips.begin(), query.scrips.end()) {}

  bool Has(ClientId client, AccountId account, ScripId scrip) const {
    return Holds(clients_, client) && Holds(accounts_, account) && Holds(scrips_, scrip);
  }

  /// The client when it is a single one: what others did need not be read then.
  std::optional<ClientId> OnlyClient() const {
    return clients_.size() == 1 ? std::optional(*clients_.begin()) : std::nullopt;
  }

 private:
  template <class Id>
  static bool Holds(const std::unordered_set<Id>& chosen, Id one) {
    return chosen.empty() || chosen.contains(one);
  }

  std::unordered_set<ClientId> clients_;
  std::unordered_set<AccountId> accounts_;
  std::unordered_set<ScripId> scrips_;
};

}  // namespace quorvane::mis
