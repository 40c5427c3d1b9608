#include "portfolio/Import.h"

#include "core/database/Transaction.h"
#include "portfolio/ImportSteps.h"

namespace quorvane::portfolio {
namespace {

/// The refusal of `work`. Errors are in the result, and nothing was written then.
MaybeRefusal TakeAllIn(database::Connection& connection, const Portfolio& portfolio, bool dry_run,
                       const ImportWork& work, ImportResult& result, Progress& progress) {
  MaybeRefusal refusal;
  // What is returned rolls back; who reads it is told by `refusal` and the result.
  const Refusal nothing_written;
  const auto take_in = [&](database::Transaction& transaction) -> MaybeRefusal {
    result = {};
    refusal = work.before ? work.before(transaction) : std::nullopt;
    if (refusal) {
      return nothing_written;
    }
    ErrorList errors;
    quorvane::portfolio::TakeIn(transaction, portfolio, Movements::kWritten, errors, result,
                                progress);
    result.errors = errors.Take();
    if (result.errors.empty() && work.after) {
      refusal = work.after(transaction);
    }
    transaction.Changes().Is(changes::Kind::kImported);
    return dry_run || refusal || !result.errors.empty() ? MaybeRefusal(nothing_written)
                                                        : std::nullopt;
  };
  // Alone: what is recorded already decides what it writes. The refusal only rolls back.
  static_cast<void>(database::InTransaction(connection, take_in, database::Turn::kAlone));
  return refusal;
}

}  // namespace

void TakeIn(database::Transaction& transaction, const Portfolio& portfolio, Movements movements,
            ErrorList& errors, ImportResult& result, Progress& progress) {
  const ResolvedNames names = ImportMasters(transaction, portfolio, errors, result);
  ImportMovements(transaction, portfolio, names, movements, errors, result, progress);
  ImportMoney(transaction, portfolio, names, errors, result);
  ImportTaxRecords(transaction, portfolio, names, errors, result);
  if (errors.Empty()) {
    ImportMarks(transaction, portfolio, names, errors, result);
  }
}

ImportResult ImportPortfolio(database::Connection& connection, const QString& folder, bool dry_run,
                             Progress& progress) {
  ErrorList reading;
  const Portfolio portfolio = ReadPortfolio(folder, reading);
  ImportResult result;
  if (!reading.Empty()) {
    result.errors = reading.Take();
    return result;
  }
  const auto summarise = [&](database::Transaction& transaction) -> MaybeRefusal {
    transaction.Changes().Summarise(changes::Kind::kImported, folder);
    return std::nullopt;
  };
  static_cast<void>(
      TakeAllIn(connection, portfolio, dry_run, {.before = summarise}, result, progress));
  return result;
}

Result<ImportResult> ImportFiles(database::Connection& connection,
                                 const std::map<FileKind, std::string>& contents, bool dry_run,
                                 const ImportWork& work, Progress& progress) {
  ErrorList reading;
  const Portfolio portfolio = ReadPortfolioFiles(contents, reading);
  ImportResult result;
  if (!reading.Empty()) {
    result.errors = reading.Take();
    return result;
  }
  if (MaybeRefusal refusal = TakeAllIn(connection, portfolio, dry_run, work, result, progress)) {
    return *refusal;
  }
  return result;
}

}  // namespace quorvane::portfolio
