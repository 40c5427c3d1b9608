#include "reports/home/StatementChecks.h"

#include "core/records/Query.h"
#include "core/records/StatementCheck.h"

#include <algorithm>
#include <map>

namespace quorvane::home {
namespace {

using records::StatementCheck;
using text::Date;

constexpr std::chrono::months kOldMonths{6};

/// The last day before which a statement is old.
Date OldBefore(Date today) {
  const std::chrono::year_month_day day = std::chrono::year_month_day(today) - kOldMonths;
  // The 31st of a month that has 30 days.
  return day.ok() ? Date(day) : Date(day.year() / day.month() / std::chrono::last);
}

std::map<AccountId, StatementCheck> LastChecks(database::Connection& connection) {
  std::map<AccountId, StatementCheck> last;
  records::Select<StatementCheck>(connection).Each([&](const StatementCheck& check) {
    const auto [known, is_first] = last.try_emplace(check.account, check);
    if (!is_first &&
        text::ParseDmy(known->second.statement_day) < text::ParseDmy(check.statement_day)) {
      known->second = check;
    }
  });
  return last;
}

void Take(const StatementCheck& check, Date old_before, CheckedAccount& account) {
  account.day = text::ParseDmy(check.statement_day);
  account.checked_on = check.checked_on;
  account.compared = check.compared;
  account.differing = check.differing;
  if (account.differing > 0) {
    account.state = CheckState::kDiffers;
  } else {
    const bool is_old = account.day.value_or(Date()) < old_before;
    account.state = is_old ? CheckState::kOld : CheckState::kAgrees;
  }
}

}  // namespace

std::vector<CheckedAccount> ReadCheckedAccounts(database::Connection& connection,
                                                const QString& family, Date today) {
  const std::map<AccountId, StatementCheck> checks = LastChecks(connection);
  const Date old_before = OldBefore(today);
  std::vector<CheckedAccount> accounts;
  for (const auto& row : connection.Open(
           "Select A.id,A.CId,C.Name,A.ACNo From ClientActDet A Join ClientInfo C On C.Id=A.CId "
           "Where (?='' or C.GCode=?) and Exists(Select 1 From HomeHolding H Where H.CId=A.CId) "
           // Lots of earlier years stay as they were when those years ended.
           "and Exists(Select 1 From Stock S Where S.Cid=A.CId and S.AcId=A.id and S.Qty>0 and "
           "S.Fyear=(Select Max(Y.Fyear) From Stock Y Where Y.Cid=A.CId and Y.AcId=A.id)) "
           "Order By C.Name,A.CId,A.ACNo,A.id",
           family, family)) {
    CheckedAccount account{.client = ClientId{row.Int(1)},
                           .account = AccountId{row.Int(0)},
                           .client_name = row.Text(2),
                           .number = row.Text(3),
                           .checked_on = {}};
    if (const auto check = checks.find(account.account); check != checks.end()) {
      Take(check->second, old_before, account);
    }
    accounts.push_back(std::move(account));
  }
  return accounts;
}

StatementCounts CountStatements(database::Connection& connection, const QString& family,
                                Date today) {
  StatementCounts counts;
  for (const CheckedAccount& account : ReadCheckedAccounts(connection, family, today)) {
    counts.never += account.state == CheckState::kNever ? 1 : 0;
    counts.differing += account.state == CheckState::kDiffers ? 1 : 0;
    counts.old += account.state == CheckState::kOld ? 1 : 0;
  }
  return counts;
}

}  // namespace quorvane::home
