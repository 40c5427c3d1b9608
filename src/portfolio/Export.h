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
/// join it. All is read at one instant. The folder keeps its old files until every new one is
/// written under another name; then all are renamed together (see OutputFolder). Throws
/// std::runtime_error when a file cannot be written, DatabaseError, or Cancellation, and has then
/// left the old files.
void ExportPortfolio(database::Connection& connection, const QString& folder,
                     std::optional<ClientId> client, Progress& progress);

}  // namespace quorvane::portfolio
