#pragma once

#include "core/Ids.h"
#include "core/database/Connection.h"

#include <map>
#include <set>
#include <string>

namespace quorvane::home {

/// Tells whether the records behind a client's figures changed since they were computed, whoever
/// changed them and with which program: a stamp is another text when any of them is.
class RecordStamps {
 public:
  /// Reads what concerns all clients. `own` has the stamps of single clients' records that are
  /// known already, and takes in those that are read; it outlives the object. Throws DatabaseError.
  RecordStamps(database::Connection& connection, std::map<ClientId, std::string>& own);

  /// Of all records from which the client's holdings and gains are computed, those of clients
  /// included whose shares came to the client. Reads each client's records once.
  std::string Of(ClientId client);

  /// The client and everyone whose shares may have come to the client.
  std::set<ClientId> GiversTo(ClientId client) const;

  /// The clients and everyone to whom shares of theirs may have come.
  std::set<ClientId> TakersFrom(const std::set<ClientId>& clients) const;

  /// Of what concerns all clients, by which every stamp is another one.
  static std::string Common(database::Connection& connection);

 private:
  const std::string& OwnOf(ClientId client);

  database::Connection& connection_;
  std::string common_;
  std::multimap<ClientId, ClientId> givers_;  ///< to whom, whose shares
  std::multimap<ClientId, ClientId> takers_;  ///< whose shares, to whom
  std::map<ClientId, std::string>& own_;
};

}  // namespace quorvane::home
