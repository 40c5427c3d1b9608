#include "portfolio/Import.h"

#include "core/database/Transaction.h"
#include "portfolio/ImportSteps.h"

namespace quorvane::portfolio {

void TakeIn(database::Transaction& transaction, const Portfolio& portfolio, Movements movements,
            ErrorList& errors, ImportResult& result, Progress& progress) {
  const ResolvedNames names = ImportMasters(transaction, portfolio, errors, result);
  ImportMovements(transaction, portfolio, names, movements, errors, result, progress);
  ImportMoney(transaction, portfolio, names, errors, result);
  ImportTaxRecords(transaction, portfolio, names, errors, result);
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
  // The refusal rolls back; who reads it is told by the result.
  const Refusal nothing_written;
  const auto take_in = [&](database::Transaction& transaction) -> MaybeRefusal {
    transaction.Changes().Summarise(changes::Kind::kImported, folder);
    result = {};
    ErrorList errors;
    TakeIn(transaction, portfolio, Movements::kWritten, errors, result, progress);
    result.errors = errors.Take();
    return dry_run || !result.errors.empty() ? MaybeRefusal(nothing_written) : std::nullopt;
  };
  // Alone: what is recorded already decides what it writes. The refusal only rolls back.
  static_cast<void>(database::InTransaction(connection, take_in, database::Turn::kAlone));
  return result;
}

}  // namespace quorvane::portfolio
