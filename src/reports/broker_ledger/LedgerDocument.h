#pragma once

#include "reporting/document/ReportDocument.h"
#include "reports/broker_ledger/BrokerLedger.h"

#include <span>

namespace quorvane::broker_ledger {

/// The brokers' accounts as a document: a group a broker, closed by "Closing Balance" with the sums
/// of both sides. `client` is named below the title.
reporting::ReportDocument MakeLedgerDocument(const LedgerQuery& query, const QString& client,
                                             std::span<const BrokerAccount> accounts);

/// A balance in paise as the ledger shows it: "250.50Dr", or "Cr" when it is negative.
QString BalanceText(std::int64_t balance);

}  // namespace quorvane::broker_ledger
