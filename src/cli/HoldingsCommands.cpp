#include "cli/Command.h"
#include "core/ledger/Lots.h"
#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/output/WriteReport.h"

#include <algorithm>
#include <tuple>

namespace quorvane::cli {
namespace {

struct HoldingsOptions {
  std::string client;
  std::string year;
  std::string account;
  bool all = false;
  std::string format = "text";
};

Result<ledger::LotScope> ScopeOf(const lookups::Directory& directory,
                                 const HoldingsOptions& options) {
  const Result<ClientId> client = ClientOf(directory, options.client);
  if (!client) {
    return client.Why();
  }
  if (options.account.empty()) {
    return ledger::LotScope{*client, YearOf(options.year), {}};
  }
  const Result<AccountId> account = AccountOf(directory, *client, options.account);
  if (!account) {
    return account.Why();
  }
  return ledger::LotScope{*client, YearOf(options.year), *account};
}

/// By account, scrip and rate, as people look for them.
std::vector<records::Lot> LotsOf(Context& context, const lookups::Directory& directory,
                                 const ledger::LotScope& scope, const HoldingsOptions& options) {
  std::vector<records::Lot> lots = ledger::ReadLots(context.Connection(), scope);
  if (!options.all) {
    std::erase_if(lots, [](const records::Lot& lot) { return !lot.quantity; });
  }
  std::sort(lots.begin(), lots.end(), [&](const records::Lot& a, const records::Lot& b) {
    return std::tie(directory.Account(a.account).number, directory.Scrip(a.scrip).code, a.rate,
                    a.id) < std::tie(directory.Account(b.account).number,
                                     directory.Scrip(b.scrip).code, b.rate, b.id);
  });
  return lots;
}

std::string HoldingsCsv(const std::vector<records::Lot>& lots,
                        const lookups::Directory& directory) {
  std::string out = "account_no,scrip_code,lot_id,rate,quantity\n";
  for (const records::Lot& lot : lots) {
    text::AppendCsvField(out, directory.Account(lot.account).number);
    out += ',';
    text::AppendCsvField(out, directory.Scrip(lot.scrip).code);
    out += ',' + std::to_string(lot.id.value) + ',';
    text::AppendExact(out, lot.rate);
    out += ',';
    text::AppendExact(out, lot.quantity.Number());
    out += '\n';
  }
  return out;
}

reporting::ReportDocument HoldingsDocument(const HoldingsOptions& options, ClientId id,
                                           const std::vector<records::Lot>& lots,
                                           const lookups::Directory& directory) {
  using reporting::Alignment;
  using reporting::Mask;
  const auto utf8 = [](const std::string& text) { return QString::fromStdString(text); };
  reporting::Table table;
  table.columns = {{QStringLiteral("Demat A/c No."), Mask::kText, Alignment::kLeft},
                   {QStringLiteral("Code"), Mask::kText, Alignment::kLeft},
                   {QStringLiteral("Script Name"), Mask::kText, Alignment::kLeft},
                   {QStringLiteral("Rate"), Mask::kAmount, Alignment::kRight},
                   reporting::QuantityColumn(QStringLiteral("Quantity"))};
  for (const records::Lot& lot : lots) {
    const auto& scrip = directory.Scrip(lot.scrip);
    table.rows.push_back({.kind = reporting::RowKind::kData,
                          .cells = {utf8(directory.Account(lot.account).number), utf8(scrip.code),
                                    utf8(scrip.name), lot.rate, lot.quantity.Number()}});
  }
  const auto& client = directory.Client(id);
  return {{QStringLiteral("Holdings"), QStringLiteral("Financial Year - ") + utf8(options.year),
           utf8(client.name) + QStringLiteral(" (") + utf8(client.code) + QLatin1Char(')')},
          {table}};
}

MaybeRefusal Holdings(Context& context, const HoldingsOptions& options) {
  const lookups::Directory directory(context.Connection());
  const Result<ledger::LotScope> scope = ScopeOf(directory, options);
  if (!scope) {
    return scope.Why();
  }
  const std::vector<records::Lot> lots = LotsOf(context, directory, *scope, options);
  Print(options.format == "csv"
            ? HoldingsCsv(lots, directory)
            : reporting::WriteText(HoldingsDocument(options, *scope->client, lots, directory)));
  return std::nullopt;
}

}  // namespace

void AddHoldingsCommands(CLI::App& app, Context& context) {
  auto options = std::make_shared<HoldingsOptions>();
  CLI::App* holdings = app.add_subcommand("holdings", "The lots that a client holds");
  holdings->add_option("--client", options->client, "Client code")->required();
  holdings->add_option("--year", options->year, "Financial year, such as 2011-12")->required();
  holdings->add_option("--account", options->account, "Only this demat account");
  holdings->add_flag("--all", options->all, "Lots that are used up, too");
  holdings->add_option("--format", options->format, "text or csv")
      ->check(CLI::IsMember({"text", "csv"}));
  SetWork(*holdings, context, [&context, options] { return Holdings(context, *options); });
}

}  // namespace quorvane::cli
