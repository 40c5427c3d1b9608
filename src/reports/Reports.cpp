#include "reports/Reports.h"

#include "reports/broker_account/BrokerAccount.h"
#include "reports/broker_ledger/BrokerLedger.h"
#include "reports/demat/DematStatement.h"
#include "reports/demat/TransactionDocument.h"
#include "reports/mis/MisReport.h"
#include "reports/performance/Returns.h"
#include "reports/profit/ProfitDocument.h"
#include "reports/tax/TaxDocument.h"

namespace quorvane::reports {
namespace {

using demat::TransactionLayout;
using mis::ReportKind;
using profit::Layout;
using profit::StatementMode;
using enum ReportId;

template <StatementMode mode, Layout layout>
records::Faults ProfitSamples(const SampleQuery& of, const Sample::Give& give) {
  const auto query = profit::ProfitQuery::OfYear(std::nullopt, of.year);
  Progress progress;
  const auto take = [&](ClientId client, std::span<const profit::StatementRow> rows) {
    SampleReport sample{
        client, profit::MakeProfitDocument(mode, layout, query, client, rows, of.directory)};
    if (layout == Layout::kDetail) {
      profit::AppendStatementCsvHeader(sample.csv.emplace());
      profit::AppendStatementCsv(*sample.csv, rows, of.directory);
    }
    give(sample);
  };
  return profit::BuildStatement(of.connection, query, progress, take);
}

records::Faults LedgerSamples(const SampleQuery& of, const Sample::Give& give) {
  for (const lookups::ClientEntry& client : of.directory.Clients()) {
    const broker_ledger::LedgerQuery query{
        {client.id, of.year}, reporting::Period::Of(of.year), {}};
    Progress progress;
    give(
        {client.id, broker_ledger::MakeLedgerDocument(
                        query, QString::fromStdString(client.name),
                        broker_ledger::ReadBrokerLedger(of.connection, query, progress).accounts)});
  }
  return {};
}

records::Faults AccountSamples(const SampleQuery& of, const Sample::Give& give) {
  for (const lookups::ClientEntry& client : of.directory.Clients()) {
    const broker_account::AccountQuery query{
        {client.id, of.year}, reporting::Period::Of(of.year), {}};
    Progress progress;
    give({client.id, broker_account::MakeAccountDocument(
                         query, QString::fromStdString(client.name),
                         broker_account::ReadBrokerAccounts(of.connection, query, progress))});
  }
  return {};
}

records::Faults ReturnsSamples(const SampleQuery& of, const Sample::Give& give) {
  for (const lookups::ClientEntry& client : of.directory.Clients()) {
    const performance::ReturnsQuery query{
        .clients = {client.id}, .from = of.year.FirstDay(), .to = of.year.LastDay()};
    Progress progress;
    give({client.id, performance::MakeReturnsDocument(
                         performance::ReadReturns(of.connection, query, progress))});
  }
  return {};
}

records::Faults DematSamples(const SampleQuery& of, const Sample::Give& give) {
  const demat::DematQuery query{{}, of.year, reporting::Period::Of(of.year), {}, {}};
  Progress progress;
  const auto take = [&](ClientId client, std::span<const demat::ScripMovements> scrips) {
    SampleReport sample{client, demat::MakeDematDocument(query, client, scrips, of.directory)};
    demat::AppendDematCsvHeader(sample.csv.emplace());
    demat::AppendDematCsv(*sample.csv, scrips, of.directory);
    give(sample);
  };
  return demat::BuildDematStatement(of.connection, query, progress, take);
}

template <TransactionLayout layout>
records::Faults TransactionSamples(const SampleQuery& of, const Sample::Give& give) {
  const demat::TransactionQuery query{{}, of.year, reporting::Period::Of(of.year), {}, {}, layout};
  Progress progress;
  const auto take = [&](ClientId client, std::span<const demat::TransactionSection> sections) {
    SampleReport sample{client,
                        demat::MakeTransactionDocument(query, client, sections, of.directory)};
    if (layout == TransactionLayout::kDetailed) {
      demat::AppendTransactionCsvHeader(sample.csv.emplace());
      demat::AppendTransactionCsv(*sample.csv, sections, of.directory);
    }
    give(sample);
  };
  return demat::BuildTransactions(of.connection, query, progress, take);
}

/// Of all clients, by group and client.
template <ReportKind kind, bool detail>
records::Faults MisSamples(const SampleQuery& of, const Sample::Give& give) {
  mis::MisQuery query = mis::MisQuery::OfYear(kind, mis::Grouping::kClient, of.year);
  query.detail = detail;
  Progress progress;
  give({ClientId{}, mis::MakeMisReport(of.connection, query, progress)});
  return {};
}

records::Faults TaxSamples(const SampleQuery& of, const Sample::Give& give) {
  const Result<tax_year::Law> law = tax_year::Law::Load(of.data_folder, of.year);
  if (!law) {
    return {};
  }
  std::vector<ClientId> clients;
  for (const lookups::ClientEntry& client : of.directory.Clients()) {
    clients.push_back(client.id);
  }
  Progress progress;
  for (const tax_year::Member& member :
       tax_year::ReadMembers(of.connection, of.directory, *law, clients, progress)) {
    SampleReport sample{
        member.tax.year.of.client,
        tax_year::MakeTaxDocument(law->rules, member.tax, member.points, of.directory)};
    tax_year::AppendTaxCsvHeader(sample.csv.emplace());
    tax_year::AppendTaxCsv(*sample.csv, member.tax, of.directory);
    give(sample);
  }
  return {};
}

constexpr Sample kProfitSamples[] = {
    {"profit", ProfitSamples<StatementMode::kProfit, Layout::kDetail>},
    {"profit-summary", ProfitSamples<StatementMode::kProfit, Layout::kSummary>}};
constexpr Sample kCapitalGainSamples[] = {
    {"capital-gain", ProfitSamples<StatementMode::kCapitalGain, Layout::kDetail>},
    {"capital-gain-summary", ProfitSamples<StatementMode::kCapitalGain, Layout::kSummary>}};
constexpr Sample kLedgerSamples[] = {{"broker-ledger", LedgerSamples}};
constexpr Sample kAccountSamples[] = {{"broker-account", AccountSamples}};
constexpr Sample kReturnsSamples[] = {{"returns", ReturnsSamples}};
constexpr Sample kDematSamples[] = {{"demat", DematSamples}};
constexpr Sample kTransactionSamples[] = {
    {"transactions", TransactionSamples<TransactionLayout::kDetailed>},
    {"transactions-summary", TransactionSamples<TransactionLayout::kSummarized>}};
constexpr Sample kTaxSamples[] = {{"tax-year", TaxSamples}};
constexpr Sample kPositionSamples[] = {
    {"portfolio-position", MisSamples<ReportKind::kPosition, false>}};
constexpr Sample kValuationSamples[] = {
    {"portfolio-valuation", MisSamples<ReportKind::kValuation, false>}};
constexpr Sample kMarketSamples[] = {{"market-valuation", MisSamples<ReportKind::kMarket, false>}};
constexpr Sample kProfitLossSamples[] = {
    {"profit-loss", MisSamples<ReportKind::kProfitLoss, true>}};
constexpr Sample kStockSamples[] = {{"stock-valuation", MisSamples<ReportKind::kStock, true>}};

constexpr Report kReports[] = {
    {kProfit, kProfitWindow, "statement", "profit", "Scriptwise profitability statement",
     kProfitSamples},
    {kCapitalGain, kCapitalGainWindow, "statement", "capital-gain", "Capital gain statement",
     kCapitalGainSamples},
    {kBrokerLedger, kLedgerWindow, "statement", "broker-ledger", "Accounts of the brokers",
     kLedgerSamples},
    {kDemat, kDematWindow, "statement", "demat", "Demat account statement", kDematSamples},
    {kTransactions, kTransactionWindow, "statement", "transactions", "Transaction report",
     kTransactionSamples},
    {kDividends, kDividendWindow, "statement", "dividends", "Dividends by advance-tax window", {}},
    {kScripPage,
     kScripPageWindow,
     "statement",
     "scrip-page",
     "Everything of one scrip over all years",
     {}},
    {kTaxYear, kTaxYearWindow, "", "tax", "Gains of a year by section, set-off and tax",
     kTaxSamples},
    {kBrokerAccount, kBrokerAccountWindow, "statement", "broker-account",
     "What is owed to the brokers and due from them, with open bills by age", kAccountSamples},
    {kReturns, kReturnsWindow, "", "returns",
     "Money-weighted annual returns of scrips, accounts, clients and families", kReturnsSamples},
    {kBooklet,
     kBookletWindow,
     "",
     "booklet",
     "A year of a client or a family as one PDF with contents and charts",
     {}},
    {kPosition, kMisWindow, "mis", "position", "Portfolio position", kPositionSamples},
    {kValuation, kMisWindow, "mis", "valuation", "Portfolio valuation at market rates",
     kValuationSamples},
    {kMarket, kMisWindow, "mis", "market", "Cost beside market value", kMarketSamples},
    {kProfitLoss, kMisWindow, "mis", "profit-loss", "Movements and gains", kProfitLossSamples},
    {kStock, kMisWindow, "mis", "stock", "Stock valuation at cost", kStockSamples},
};

}  // namespace

std::span<const Report> Reports() {
  return kReports;
}

}  // namespace quorvane::reports
