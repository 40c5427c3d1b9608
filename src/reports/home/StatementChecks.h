#pragma once

#include "core/Ids.h"
#include "core/database/Connection.h"
#include "core/text/Dates.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvane::home {

/// How a demat account stands to its last statement of holdings, the most urgent first.
enum class CheckState : std::uint8_t {
  kDiffers = 1,  ///< it did not agree
  kNever,        ///< it was compared with none
  kOld,          ///< the statement is of a day more than six months ago
  kAgrees
};

/// A demat account that holds anything, and its last comparison with a statement.
struct CheckedAccount {
  ClientId client;
  AccountId account;
  QString client_name;
  QString number;
  std::optional<text::Date> day = {};  ///< of the statement; none when it was never compared
  QString checked_on;                  ///< dd/mm/yyyy
  int compared = 0;                    ///< holdings
  int differing = 0;
  CheckState state = CheckState::kNever;
};

/// The accounts of all clients, or of a family, by client and number. Throws DatabaseError.
std::vector<CheckedAccount> ReadCheckedAccounts(database::Connection& connection,
                                                const QString& family, text::Date today);

struct StatementCounts {
  int never = 0;
  int differing = 0;
  int old = 0;  ///< of those that agreed
};
StatementCounts CountStatements(database::Connection& connection, const QString& family,
                                text::Date today);

}  // namespace quorvane::home
