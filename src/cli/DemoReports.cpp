#include "cli/DemoReports.h"

#include "reports/profit/StatementCsv.h"
#include "reports/profit/StatementDocument.h"

namespace quorvane::cli {
namespace {

template <profit::StatementMode mode, profit::Layout layout>
void MakeStatements(Context& context, const lookups::Directory& directory, text::FinancialYear year,
                    const DemoReportKind::Give& give) {
  const auto query = profit::StatementQuery::OfYear(std::nullopt, year);
  Progress progress;
  const auto take = [&](ClientId client, std::span<const profit::StatementRow> rows) {
    DemoReport report{client,
                      profit::MakeStatementDocument(mode, layout, query, client, rows, directory)};
    if (layout == profit::Layout::kDetail) {
      report.csv.emplace();
      profit::AppendStatementCsvHeader(*report.csv);
      profit::AppendStatementCsv(*report.csv, rows, directory);
    }
    give(report);
  };
  InformOf(context, profit::BuildStatement(context.Connection(), query, progress, take));
}

constexpr DemoReportKind kKinds[] = {
    {"capital-gain", MakeStatements<profit::StatementMode::kCapitalGain, profit::Layout::kDetail>},
    {"capital-gain-summary",
     MakeStatements<profit::StatementMode::kCapitalGain, profit::Layout::kSummary>},
    {"profit", MakeStatements<profit::StatementMode::kProfit, profit::Layout::kDetail>},
    {"profit-summary", MakeStatements<profit::StatementMode::kProfit, profit::Layout::kSummary>},
    {"broker-ledger", MakeDemoLedgers},
    {"demat", MakeDemoDematStatements},
    {"transactions", MakeDemoTransactions},
    {"transactions-summary", MakeDemoTransactionSummaries},
    {"portfolio-position", MakeDemoPositions},
    {"portfolio-valuation", MakeDemoValuations},
    {"market-valuation", MakeDemoMarketValuations},
    {"profit-loss", MakeDemoProfitReports},
    {"stock-valuation", MakeDemoStockValuations},
};

}  // namespace

std::span<const DemoReportKind> DemoReportKinds() {
  return kKinds;
}

}  // namespace quorvane::cli
