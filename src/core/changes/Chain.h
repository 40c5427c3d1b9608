#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "core/changes/Log.h"

#include <QString>
#include <QStringList>

namespace quorvane::changes {

/// Follows the chain of hashes from its base to its end and tells, a sentence each, which entries
/// were edited, removed or added by other means; nothing when the log is as it was written. Reads
/// the whole log once. Throws DatabaseError and Cancellation.
QStringList CheckChain(database::Connection& connection, Progress& progress);

/// Where the log ends: "entry 120, 5f3a...". Noted elsewhere, it shows later that no entry up to
/// there was changed.
QString EndOf(database::Connection& connection);

/// Gives the entries made before a local day ("2011-06-15"), and those numbered before one of them,
/// to `keep` in their order, so that a file of them is written before they are removed. Refused to
/// a user who may not administer, and when there is none. Returns the number of the last one.
Result<std::int64_t> Export(database::Connection& connection, const std::string& day,
                            const std::function<void(const Entry&)>& keep);

/// Removes the entries up to that number; the chain goes on from the hash of the last of them. An
/// entry of the log tells of it. Returns how many were removed.
Result<std::int64_t> RemoveUpTo(database::Connection& connection, std::int64_t last);

/// A line of CSV for an entry, and the line of headings.
std::string CsvHeadings();
std::string CsvOf(const Entry& entry, const std::string& client_code);

}  // namespace quorvane::changes
