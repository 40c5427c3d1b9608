#include "cli/ReportCommand.h"
#include "reporting/selection/ReportLists.h"
#include "reports/performance/Returns.h"

namespace quorvane::cli {
namespace {

struct ReturnsOptions {
  std::string client;
  std::string group;
  std::string scrip;
  std::string account;
  std::string from;
  std::string to;
  OutputOptions output;
};

Result<std::set<ClientId>> ClientsOf(Context& context, const ReturnsOptions& options,
                                     const lookups::Directory& directory) {
  if (options.client.empty() == options.group.empty()) {
    throw WrongUsage("expected --client CODE or --group GROUP");
  }
  if (!options.group.empty()) {
    auto clients =
        reporting::ClientsOfGroup(context.Connection(), QString::fromStdString(options.group));
    if (clients.empty()) {
      return RefusalOf("there is no client group \"" + options.group + "\"");
    }
    return clients;
  }
  const Result<ClientId> client = ClientOf(directory, options.client);
  if (!client) {
    return client.Why();
  }
  return std::set<ClientId>{*client};
}

Result<AccountId> AccountIn(const std::set<ClientId>& clients, const std::string& number,
                            const lookups::Directory& directory) {
  for (const ClientId client : clients) {
    if (const auto* account = directory.FindAccount(client, number)) {
      return account->id;
    }
  }
  return RefusalOf("there is no demat account \"" + number + "\" of these clients");
}

Result<performance::ReturnsQuery> QueryOf(Context& context, const ReturnsOptions& options,
                                          const lookups::Directory& directory) {
  const Result<std::set<ClientId>> clients = ClientsOf(context, options, directory);
  if (!clients) {
    return clients.Why();
  }
  performance::ReturnsQuery query{.clients = *clients, .to = text::Today()};
  if (!options.to.empty()) {
    query.to = DateOf("--to", options.to);
  }
  if (!options.from.empty()) {
    query.from = DateOf("--from", options.from);
    if (*query.from > query.to) {
      return RefusalOf("From Date Can't be Greater than To Date.");
    }
  }
  if (!options.account.empty()) {
    const Result<AccountId> account = AccountIn(*clients, options.account, directory);
    if (!account) {
      return account.Why();
    }
    query.account = *account;
  }
  if (!options.scrip.empty()) {
    const lookups::ScripEntry* scrip = directory.FindScrip(options.scrip);
    if (scrip == nullptr) {
      return RefusalOf("there is no scrip \"" + options.scrip + "\"");
    }
    query.scrip = scrip->id;
  }
  return query;
}

MaybeRefusal PrintReturns(Context& context, const ReturnsOptions& options) {
  const lookups::Directory directory(context.Connection());
  ReportOutput output(context, options.output, false);
  const Result<performance::ReturnsQuery> query = QueryOf(context, options, directory);
  if (!query) {
    return query.Why();
  }
  const auto progress = context.MakeProgress();
  const performance::Returns returns =
      performance::ReadReturns(context.Connection(), *query, *progress);
  InformOf(context, returns.faults);
  output.Take(performance::MakeReturnsDocument(returns), "returns");
  return std::nullopt;
}

}  // namespace

void AddReturns(CLI::App& app, Context& context, const reports::Report& report) {
  auto options = std::make_shared<ReturnsOptions>();
  CLI::App* command = app.add_subcommand(report.command, report.about);
  auto* client = command->add_option("--client", options->client, "Client code");
  command->add_option("--group", options->group, "Every client of a group")->excludes(client);
  command->add_option("--scrip", options->scrip, "One scrip, by code");
  command->add_option("--account", options->account, "One demat account, by number");
  command->add_option("--from", options->from,
                      "First day, dd/mm/yyyy; that of the first record without it");
  command->add_option("--to", options->to, "Last day, dd/mm/yyyy; today without it");
  AddOutputOptions(*command, options->output);
  SetWork(*command, context, [&context, options] { return PrintReturns(context, *options); });
}

}  // namespace quorvane::cli
