#pragma once

#include "core/Ids.h"
#include "core/database/Transaction.h"
#include "core/text/FinancialYear.h"
#include "core/text/Shares.h"

#include <QStringList>

#include <optional>
#include <span>
#include <vector>

namespace quorvane::reconcile {

/// Opening stock that was taken from a statement, which tells neither cost nor day of purchase.
struct OpeningMark {
  ClientId client;
  text::FinancialYear year;
  AccountId account;
  ScripId scrip;
  text::Shares quantity{};  ///< of the opening lots that have no rate yet
};

/// The marks whose lots still have no rate; of one client or of all, by client, year and scrip.
std::vector<OpeningMark> OpenMarks(database::Connection& connection,
                                   const std::optional<ClientId>& client);

/// Writes marks in the place of those of the same clients and years.
void WriteMarks(database::Transaction& transaction, std::span<const OpeningMark> marks);

/// A sentence for each client that has such stock, in English.
QStringList OpenMarkTexts(database::Connection& connection);

}  // namespace quorvane::reconcile
