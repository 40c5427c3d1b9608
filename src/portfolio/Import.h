#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "core/database/Connection.h"
#include "core/database/Transaction.h"
#include "portfolio/ImportErrors.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::database {
class Transaction;
}

namespace quorvane::portfolio {

struct Portfolio;

/// What becomes of the documents that move shares, once they are found to be right.
enum class Movements : std::uint8_t { kWritten, kChecked };

/// How many records of one table an import wrote.
struct ImportCount {
  std::string what;  ///< in English; has a translation in the context "Portfolio"
  std::size_t added = 0;
};

struct ImportResult {
  /// A table without a new record gets no count.
  void Count(std::string_view what, std::size_t added) {
    if (added > 0) {
      counts.push_back({std::string(what), added});
    }
  }

  std::vector<ImportError> errors;  ///< when there are any, nothing was written
  std::vector<ImportCount> counts;
  std::vector<std::string> notes;  ///< types, classes and exchanges that were new
};

/// Takes a portfolio folder into the database, all or nothing, in one transaction. Master records
/// that are in the database with the same details are left as they are; with other details they
/// are an error, as is a bill, an opening lot, a transfer or a payment that is recorded already.
/// With `dry_run` everything is checked and nothing written. Throws DatabaseError, Cancellation, or
/// std::runtime_error when a file cannot be read.
ImportResult ImportPortfolio(database::Connection& connection, const QString& folder, bool dry_run,
                             Progress& progress);

/// The same for a portfolio in memory, as a part of a caller's transaction, which runs alone. With
/// errors the transaction must not be committed; bills, lots and all else but master records are
/// then not written, so that the caller may try again without what is wrong. With `movements` only
/// checked they are never written.
void TakeIn(database::Transaction& transaction, const Portfolio& portfolio, Movements movements,
            ErrorList& errors, ImportResult& result, Progress& progress);

/// What else belongs to the transaction of an import, before its records are read and after they
/// are written. It may refuse, and nothing is written then.
struct ImportWork {
  std::function<MaybeRefusal(database::Transaction&)> before = {};
  std::function<MaybeRefusal(database::Transaction&)> after = {};
};

/// Takes files of a portfolio folder that are in memory in, by the same rules. Refused by `work`
/// alone. Throws DatabaseError and Cancellation.
Result<ImportResult> ImportFiles(database::Connection& connection,
                                 const std::map<FileKind, std::string>& contents, bool dry_run,
                                 const ImportWork& work, Progress& progress);

}  // namespace quorvane::portfolio
