#pragma once

#include "core/ClientYear.h"
#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/records/BillAmounts.h"
#include "core/records/Faults.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/period/Period.h"
#include "reports/broker_account/OpenItems.h"

#include <QString>

#include <optional>
#include <vector>

/// The account of a client with a broker, as the broker's own statement has it: a bill counts with
/// the net of its note. The broker ledger, which adds up bill totals without their sign, stays
/// beside it.
namespace quorvane::broker_account {

using text::Paise;

struct AccountQuery {
  ClientYear of;
  reporting::Period period;       ///< within the year
  std::vector<BrokerId> brokers;  ///< all when empty
};

/// A line of an account. One of the two sides is 0: a debit is owed to the broker, a credit was
/// paid to or is due from the broker.
struct AccountLine {
  text::Date date;
  QString particulars;
  records::NoteAmounts note;  ///< of a bill
  Paise debit;
  Paise credit;
  Paise balance;  ///< after the line: owed to the broker, below zero due from the broker
};

/// What a year begins with. The account has the balance that was entered for the year; without one,
/// what the year before closed with. A balance that *Carry Forward* took from the broker ledger was
/// not entered: that ledger is no account, so the account goes on with its own closing balance.
struct Opening {
  std::optional<Paise> recorded;        ///< in the opening balances of the year
  bool carried_from_ledger = false;     ///< it is what the broker ledger closed with
  std::optional<Paise> closing_before;  ///< of the account; none when nothing is recorded before

  bool IsEntered() const { return recorded && !carried_from_ledger; }
  Paise Amount() const { return IsEntered() ? *recorded : closing_before.value_or(Paise()); }
  bool Differs() const { return recorded && closing_before && *recorded != *closing_before; }
};

struct BrokerAccount {
  BrokerId broker;
  QString name;
  Opening opening;
  std::vector<AccountLine> lines;
  std::vector<OpenItem> open;  ///< at the end of the period, the oldest first

  Paise Debits() const;
  Paise Credits() const;
  Paise Closing() const { return Debits() - Credits(); }
};

struct BrokerAccounts {
  std::vector<BrokerAccount> accounts;  ///< by name
  std::vector<QString> without_lines;   ///< bills of which only the charges count
  records::Faults faults;               ///< documents whose date cannot be read; left out
};

/// The accounts by broker, with everything that is recorded up to the end of the period. A document
/// counts on its day. An account begins with one line for its balance on the first day of the
/// period, unless that is 0; then bills, payments and receipts by date, on one day in that order. A
/// broker with neither a line nor an opening balance is left out. One query a table. Throws
/// DatabaseError and Cancellation.
BrokerAccounts ReadBrokerAccounts(database::Connection& connection, const AccountQuery& query,
                                  Progress& progress);

/// The accounts as a document: a group a broker, closed by the sums of its columns; then what is
/// open by age, and opening balances that are not what the year before closed with.
reporting::ReportDocument MakeAccountDocument(const AccountQuery& query, const QString& client,
                                              const BrokerAccounts& accounts);

}  // namespace quorvane::broker_account
