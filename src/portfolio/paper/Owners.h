#pragma once

#include "core/Ids.h"
#include "core/Result.h"
#include "core/database/Connection.h"

#include <QString>

#include <span>
#include <string>
#include <vector>

namespace quorvane::paper {

/// A demat account as papers name it.
struct OwnAccount {
  AccountId id;
  ClientId client;
  std::string number;  ///< as recorded, letters and digits alone, in capitals
  std::string dp_id;   ///< the same; empty when none is recorded
  QString shown;       ///< as recorded
};

/// The accounts of all clients, by their keys.
std::vector<OwnAccount> ReadAccounts(database::Connection& connection);

/// The account of the client that a paper's number means: the number is recorded whole, or as the
/// part of the client under its DP id; nullptr when there is none.
const OwnAccount* AccountNamed(std::span<const OwnAccount> accounts, ClientId client,
                               const std::string& number);

/// The account of another client that has exactly that number; nullptr when there is none.
const OwnAccount* AccountOfAnother(std::span<const OwnAccount> accounts, ClientId client,
                                   const std::string& number);

}  // namespace quorvane::paper
