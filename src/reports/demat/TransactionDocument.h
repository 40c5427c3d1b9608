#pragma once

#include "core/lookups/Directory.h"
#include "reporting/document/ReportDocument.h"
#include "reports/demat/TransactionReport.h"

#include <QString>

#include <span>
#include <string>

namespace quorvane::demat {

/// "TRANSACTION REPORT" or "EQUITY TRANSACTION REPORT".
QString TransactionTitle(TransactionLayout layout);

/// "Demat A/c No. 1001, 1002": the accounts of the query; "All Demat A/c" when the query names
/// none.
QString AccountsLine(const TransactionQuery& query, const lookups::Directory& directory);
QString AccountLine(AccountId account, const lookups::Directory& directory);

/// One client's report as a document, from what BuildTransactions gives: a table a broker, and
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

/// File name of a layout's template: "TransRpt.xlsx" or "TransRptNew.xlsx".
QString TransactionTemplate(TransactionLayout layout);

/// Fills the layout's template, which is in `templates`, with one client's report and writes the
/// workbook. The template's named cells: `CompId` (the client), `DMat` (the accounts),
/// `FrmAndToDt` (the period), and the rows `Grp1` (an account, a broker), `Fld1` to `Fld13` (a
/// line: number, date, bill, settlement, company, buy or sell, quantity, rate, trade value,
/// brokerage, service tax, STT, total), `Tot` (totals), `Sum` (charges, of the summarized layout
/// alone), `Net` (what is to be paid)
/// and `Gap`, which are numbered alike. Throws std::runtime_error, with the template's path where
/// that is missing or unfit, or Cancellation.
void WriteTransactionWorkbook(const TransactionQuery& query, ClientId client,
                              std::span<const TransactionSection> sections,
                              const lookups::Directory& directory, const QString& templates,
                              const QString& path, Progress& progress);

}  // namespace quorvane::demat
