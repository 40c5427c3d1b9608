#pragma once

#include "core/lookups/Directory.h"
#include "reports/mis/MisQuery.h"

#include <QString>

#include <unordered_map>

namespace quorvane::mis {

/// The names that reports are grouped by, copied when this is made.
class Names {
 public:
  explicit Names(database::Connection& connection);

  QString Scrip(ScripId id) const;
  QString Account(AccountId id) const;  ///< its number
  QString Client(ClientId id) const;    ///< its name, with the code in brackets
  QString GroupOf(ClientId id) const;   ///< as kept; empty without one
  const lookups::Directory& Directory() const { return directory_; }

  /// Keys that sort as the lists do: without regard to capitals, the id last.
  std::string SortKey(ScripId id) const;
  std::string SortKey(AccountId id) const;
  std::string SortKey(ClientId id) const;
  std::string GroupSortKey(ClientId id) const;

  /// The clients of a group, whose names are compared without regard to capitals; by code.
  std::vector<ClientId> ClientsOf(const QString& group) const;

 private:
  lookups::Directory directory_;
  std::unordered_map<ClientId, std::string> groups_;
};

}  // namespace quorvane::mis
