#pragma once

#include "core/lookups/Directory.h"
#include "reports/demat/TransactionReport.h"

#include <QString>

#include <span>

namespace quorvane::demat {

/// File name of a layout's template: "TransRpt.xlsx" or "TransRptNew.xlsx".
QString TransactionTemplate(TransactionLayout layout);

/// Fills the layout's template, which lies in `templates`, with one client's report and writes the
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
