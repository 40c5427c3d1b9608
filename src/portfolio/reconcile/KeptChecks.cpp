#include "portfolio/reconcile/KeptChecks.h"

#include "core/records/StatementCheck.h"
#include "core/records/Writing.h"

#include <algorithm>

namespace quorvane::reconcile {
namespace {

using records::StatementCheck;

/// Rows of an unknown account are counted where they can only be of one.
int DoubtsOf(const Reconciliation& result, AccountId account) {
  const bool alone = result.accounts.size() == 1;
  return static_cast<int>(std::ranges::count_if(
      result.doubts, [&](AccountId of) { return of == account || (alone && !of); }));
}

StatementCheck CheckOf(const Reconciliation& result, AccountId account, text::Date today) {
  StatementCheck check{.client = result.client,
                       .account = account,
                       .statement_day = text::FormatDmy(result.stated_day),
                       .compared = 0,
                       .differing = DoubtsOf(result, account),
                       .checked_on = text::FormatDmy(today)};
  for (const ReconciledRow& row : result.rows) {
    if (row.account == account) {
      ++check.compared;
      check.differing += row.agreement == Agreement::kAgrees ? 0 : 1;
    }
  }
  return check;
}

void Keep(database::Transaction& transaction, const StatementCheck& check) {
  const auto kept = records::Select<StatementCheck>(transaction.GetConnection())
                        .Where(&StatementCheck::account, check.account)
                        .Where(&StatementCheck::statement_day, check.statement_day)
                        .ForUpdate()
                        .First();
  if (kept == check) {
    return;
  }
  records::Delete<StatementCheck>(transaction)
      .Where(&StatementCheck::account, check.account)
      .Where(&StatementCheck::statement_day, check.statement_day)
      .Run();
  records::Insert(transaction, check);
}

}  // namespace

void KeepCheck(database::Connection& connection, const Reconciliation& result, text::Date today) {
  if (!connection.Author().May(changes::kEnter) || result.day != result.stated_day) {
    return;
  }
  database::InTransaction(connection, [&](database::Transaction& transaction) {
    for (const AccountId account : result.accounts) {
      Keep(transaction, CheckOf(result, account, today));
    }
  });
}

}  // namespace quorvane::reconcile
