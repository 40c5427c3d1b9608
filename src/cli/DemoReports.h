#pragma once

#include "cli/Command.h"
#include "reporting/document/ReportDocument.h"

#include <functional>
#include <optional>
#include <span>

namespace quorvane::cli {

/// A report of one client and year, for the demonstration.
struct DemoReport {
  ClientId client;  ///< none for a report over all clients
  reporting::ReportDocument document;
  std::optional<std::string> csv = {};  ///< in place of the document's own CSV
};

/// A kind of report: its name, which files are named by, and the function that makes each client's
/// report of a year. One line in DemoReports.cpp adds a report to the demonstration.
struct DemoReportKind {
  using Give = std::function<void(const DemoReport&)>;

  const char* name = "";
  void (*make)(Context& context, const lookups::Directory& directory, text::FinancialYear year,
               const Give& give) = nullptr;
};

std::span<const DemoReportKind> DemoReportKinds();

/// Makes the reports whose commands are in files of their own.
void MakeDemoLedgers(Context& context, const lookups::Directory& directory,
                     text::FinancialYear year, const DemoReportKind::Give& give);
void MakeDemoDematStatements(Context& context, const lookups::Directory& directory,
                             text::FinancialYear year, const DemoReportKind::Give& give);
void MakeDemoTransactions(Context& context, const lookups::Directory& directory,
                          text::FinancialYear year, const DemoReportKind::Give& give);
void MakeDemoTransactionSummaries(Context& context, const lookups::Directory& directory,
                                  text::FinancialYear year, const DemoReportKind::Give& give);
void MakeDemoPositions(Context& context, const lookups::Directory& directory,
                       text::FinancialYear year, const DemoReportKind::Give& give);
void MakeDemoValuations(Context& context, const lookups::Directory& directory,
                        text::FinancialYear year, const DemoReportKind::Give& give);
void MakeDemoMarketValuations(Context& context, const lookups::Directory& directory,
                              text::FinancialYear year, const DemoReportKind::Give& give);
void MakeDemoProfitReports(Context& context, const lookups::Directory& directory,
                           text::FinancialYear year, const DemoReportKind::Give& give);
void MakeDemoStockValuations(Context& context, const lookups::Directory& directory,
                             text::FinancialYear year, const DemoReportKind::Give& give);

}  // namespace quorvane::cli
