#pragma once

#include "core/Ids.h"
#include "core/Progress.h"
#include "core/database/Connection.h"

#include <QString>

#include <optional>

namespace quorvane::portfolio {

/// Writes the database as a portfolio folder: taking it into an empty database gives the same
/// portfolio. Masters by name or code; opening lots by client, account, year, scrip and purchase
/// date; bills by client, account, date and number, their lines in order; transfers, payments and
/// rates by date. With `client` only what concerns that client, and the clients to whom transfers
/// join it. All is read at one instant. Each file is replaced whole; throws std::runtime_error when
/// one cannot be written, DatabaseError, or Cancellation.
void ExportPortfolio(database::Connection& connection, const QString& folder,
                     std::optional<ClientId> client, Progress& progress);

}  // namespace quorvane::portfolio
