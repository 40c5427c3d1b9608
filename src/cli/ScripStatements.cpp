#include "cli/ReportCommand.h"
#include "reporting/selection/ReportLists.h"
#include "reports/dividends/DividendReport.h"
#include "reports/scrip_page/ScripPage.h"

namespace quorvane::cli {
namespace {

struct DividendOptions {
  ScopeOptions scope;
  OutputOptions output;
};

MaybeRefusal PrintDividends(Context& context, const DividendOptions& options) {
  const lookups::Directory directory(context.Connection());
  const Result<Scope> scope = ScopeOf(options.scope, directory);
  if (!scope) {
    return scope.Why();
  }
  const auto windows = tax::AdvanceTaxWindows(context.Session().folders.data, scope->year);
  ReportOutput output(context, options.output, options.scope.all);
  for (const ClientId client : ClientsOf(*scope, directory)) {
    const dividends::DividendQuery query{{client, scope->year}, scope->period};
    output.Take(dividends::MakeDividendReport(context.Connection(), query, windows),
                directory.Client(client).code);
  }
  return std::nullopt;
}

struct PageOptions {
  std::string client;
  bool family = false;
  std::string scrip;
  std::string as_on;
  OutputOptions output;
};

MaybeRefusal PrintPage(Context& context, const PageOptions& options) {
  database::Connection& connection = context.Connection();
  const lookups::Directory directory(connection);
  const Result<ClientId> client = ClientOf(directory, options.client);
  if (!client) {
    return client.Why();
  }
  const lookups::ScripEntry* scrip = directory.FindScrip(options.scrip);
  if (scrip == nullptr) {
    return RefusalOf("there is no scrip \"" + options.scrip + "\"");
  }
  const scrip_page::ScripPageQuery query{
      options.family ? reporting::FamilyOf(connection, *client) : std::set<ClientId>{*client},
      scrip->id, options.as_on.empty() ? text::Today() : DateOf("--as-on", options.as_on)};
  const auto progress = context.MakeProgress();
  ReportOutput output(context, options.output, false);
  output.Take(scrip_page::ScripPage(connection, query, *progress).Document(), scrip->code);
  return std::nullopt;
}

}  // namespace

void AddDividends(CLI::App& group, Context& context, const reports::Report& report) {
  auto options = std::make_shared<DividendOptions>();
  CLI::App* command = group.add_subcommand(report.command, report.about);
  AddPeriodOptions(*command, options->scope);
  AddOutputOptions(*command, options->output);
  SetWork(*command, context, [&context, options] { return PrintDividends(context, *options); });
}

void AddScripPage(CLI::App& group, Context& context, const reports::Report& report) {
  auto options = std::make_shared<PageOptions>();
  CLI::App* command = group.add_subcommand(report.command, report.about);
  command->add_option("--client", options->client, "Client code")->required();
  command->add_flag("--family", options->family, "The client's group, too");
  command->add_option("--scrip", options->scrip, "Scrip code")->required();
  command->add_option("--as-on", options->as_on, "Up to this day, dd/mm/yyyy; today without it");
  AddOutputOptions(*command, options->output);
  SetWork(*command, context, [&context, options] { return PrintPage(context, *options); });
}

}  // namespace quorvane::cli
