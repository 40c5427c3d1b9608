#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "core/changes/Log.h"

#include <QString>

#include <optional>

namespace quorvane::changes {

/// The last change that the connection's user made, of one client or of all, and has not taken
/// back; a kept comparison with a statement is none. Refused with the reason when there is none,
/// and when it is a work that cannot be taken back, such as an import.
Result<Entry> LastToUndo(database::Connection& connection, std::optional<ClientId> client);

/// "Take this back? Changed, Bill 17, 03/05/2011, 15/06/2011 15:00:12 ..."
QString AskUndo(const Entry& entry);

/// Puts the rows of an entry back as they were before it, with the lots that follow from them, in
/// one transaction and as an entry of its own. Refused, with nothing changed, when the records are
/// not as the entry left them, when later records build on them (shares that were sold, a broker
/// that bills name), or when what they name was deleted meanwhile.
MaybeRefusal Undo(database::Connection& connection, const Entry& entry, Progress& progress);

}  // namespace quorvane::changes
