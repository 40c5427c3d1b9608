#pragma once

#include "core/lookups/Directory.h"
#include "reporting/document/ReportDocument.h"
#include "reports/demat/TransactionReport.h"

#include <span>
#include <string>

namespace quorvane::demat {

/// "TRANSACTION REPORT" or "EQUITY TRANSACTION REPORT".
QString TransactionTitle(TransactionLayout layout);

/// "Demat A/c No. 1001, 1002": the accounts of the query, of the client's section by itself, or of
/// all accounts.
QString AccountsLine(const TransactionQuery& query, const lookups::Directory& directory);
QString AccountLine(AccountId account, const lookups::Directory& directory);

/// One client's report as a document, from what BuildTransactions hands out: a table a broker, and
/// one with the totals of all where there are several; account by account also the grand total.
reporting::ReportDocument MakeTransactionDocument(const TransactionQuery& query, ClientId client,
                                                  std::span<const TransactionSection> sections,
                                                  const lookups::Directory& directory);

/// The label and amount of the lines that lead from the total to what is to be paid.
struct ClosingLine {
  QString label;
  double amount = 0;  ///< rupees
};
std::vector<ClosingLine> ClosingLines(const TransactionClosing& closing);

/// The report for machines: a record a line, then the charges of each broker. `row` is line,
/// other_charges, transaction_charges, and payable or receivable; money with two decimals.
void AppendTransactionCsvHeader(std::string& out);
void AppendTransactionCsv(std::string& out, std::span<const TransactionSection> sections,
                          const lookups::Directory& directory);

}  // namespace quorvane::demat
