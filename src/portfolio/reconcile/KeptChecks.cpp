#include "portfolio/reconcile/KeptChecks.h"

#include "core/records/StatementCheck.h"
#include "core/records/Writing.h"

#include <algorithm>

namespace quorvane::reconcile {
namespace {

using records::StatementCheck;

StatementCheck CheckOf(const Reconciliation& result, AccountId account, text::Date today) {
  StatementCheck check{.client = result.client,
                       .account = account,
                       .statement_day = text::FormatDmy(result.day),
                       .compared = 0,
                       .differing = static_cast<int>(result.doubts),
                       .checked_on = text::FormatDmy(today)};
  for (const ReconciledRow& row : result.rows) {
    if (row.account == account) {
      ++check.compared;
      check.differing += row.agreement == Agreement::kAgrees ? 0 : 1;
    }
  }
  return check;
}

}  // namespace

void KeepCheck(database::Connection& connection, const Reconciliation& result, text::Date today) {
  if (!connection.Author().May(changes::kEnter)) {
    return;
  }
  database::InTransaction(connection, [&](database::Transaction& transaction) {
    for (const AccountId account : result.accounts) {
      const StatementCheck check = CheckOf(result, account, today);
      records::Delete<StatementCheck>(transaction)
          .Where(&StatementCheck::account, account)
          .Where(&StatementCheck::statement_day, check.statement_day)
          .Run();
      records::Insert(transaction, check);
    }
  });
}

}  // namespace quorvane::reconcile
