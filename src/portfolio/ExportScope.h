#pragma once

#include "core/Ids.h"
#include "core/database/Connection.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::portfolio {

/// A piece of SQL with the values of its "?".
struct ScopedText {
  std::string text;
  std::vector<database::Value> values;
};

/// Which records an export holds: all, or those of one client and of the clients to whom transfers
/// join it; without these the transfers could not be taken in again.
class ExportScope {
 public:
  ExportScope(database::Connection& connection, std::optional<ClientId> client);

  /// " Where ..." that keeps the rows whose key column names a client (participant, broker, scrip)
  /// of the export; empty when everything is wanted.
  ScopedText Clients(std::string_view column) const;
  ScopedText Participants(std::string_view column) const;
  ScopedText Brokers(std::string_view column) const;
  ScopedText Scrips(std::string_view column) const;

 private:
  struct Source {
    std::string_view column;
    std::string_view table;
    std::string_view client_column;
  };

  ScopedText UsedIn(std::string_view column, std::initializer_list<Source> sources) const;

  std::set<ClientId> clients_;  ///< empty: all
};

}  // namespace quorvane::portfolio
