#pragma once

#include "core/ClientYear.h"
#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/records/Faults.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/period/Period.h"

#include <QString>

#include <cstdint>
#include <span>
#include <vector>

namespace quorvane::broker_ledger {

struct LedgerQuery {
  ClientYear of;
  reporting::Period period;
  std::vector<BrokerId> brokers;  ///< all when empty
};

/// A line of a broker's account. Money in paise; one of the two sides is 0.
struct LedgerLine {
  text::Date date;
  QString particulars;
  std::int64_t debit = 0;
  std::int64_t credit = 0;
  std::int64_t balance = 0;  ///< after the line: debits less credits, "Dr" unless negative
};

struct BrokerAccount {
  BrokerId broker;
  QString name;
  std::vector<LedgerLine> lines;

  std::int64_t Debits() const;
  std::int64_t Credits() const;
  std::int64_t Closing() const { return Debits() - Credits(); }
};

struct BrokerLedger {
  std::vector<BrokerAccount> accounts;
  records::Faults faults;  ///< documents whose date cannot be read; they are left out
};

/// The brokers' accounts, by name. An account begins with the balance of its first day: the opening
/// balance of the year and everything that was recorded before the period, in one line; a balance
/// of 0 has no line. Then bills, payments and receipts by date, on one day in that order. A broker
/// without any line is left out. One query a table for any number of brokers. Throws
/// DatabaseError and Cancellation.
BrokerLedger ReadBrokerLedger(database::Connection& connection, const LedgerQuery& query,
                              Progress& progress);

/// The brokers' accounts as a document: a group a broker, closed by "Closing Balance" with the sums
/// of both sides. `client` is named below the title.
reporting::ReportDocument MakeLedgerDocument(const LedgerQuery& query, const QString& client,
                                             std::span<const BrokerAccount> accounts);

/// A balance in paise as the ledger shows it: "250.50Dr", or "Cr" when it is negative.
QString BalanceText(std::int64_t balance);

}  // namespace quorvane::broker_ledger
