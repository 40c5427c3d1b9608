#include "cli/Command.h"
#include "cli/ReportCommand.h"
#include "core/lookups/Choices.h"
#include "reports/broker_account/BrokerAccount.h"
#include "reports/broker_ledger/BrokerLedger.h"

namespace quorvane::cli {
namespace {

struct LedgerOptions {
  ScopeOptions scope;
  std::vector<std::string> brokers;
  OutputOptions output;
};

Result<std::vector<BrokerId>> BrokersOf(Context& context, const std::vector<std::string>& names) {
  const auto known = lookups::DropDownItems(context.Connection(), lookups::DropDown::kBrokers);
  std::vector<BrokerId> brokers;
  for (const std::string& name : names) {
    const auto found = std::ranges::find_if(known, [&](const lookups::Item& item) {
      return lookups::Folded(item.text.toStdString()) == lookups::Folded(name);
    });
    if (found == known.end()) {
      return RefusalOf("there is no broker " + name);
    }
    brokers.push_back(BrokerId{found->id});
  }
  return brokers;
}

reporting::ReportDocument MakeLedger(Context& context, const broker_ledger::LedgerQuery& query,
                                     const lookups::Directory& directory) {
  Progress progress;
  return broker_ledger::MakeLedgerDocument(
      query, QString::fromStdString(directory.Client(query.of.client).name),
      broker_ledger::ReadBrokerLedger(context.Connection(), query, progress).accounts);
}

reporting::ReportDocument MakeAccount(Context& context, const broker_ledger::LedgerQuery& of,
                                      const lookups::Directory& directory) {
  const broker_account::AccountQuery query{of.of, of.period, of.brokers};
  Progress progress;
  const auto accounts = broker_account::ReadBrokerAccounts(context.Connection(), query, progress);
  InformOf(context, accounts.faults);
  return broker_account::MakeAccountDocument(
      query, QString::fromStdString(directory.Client(query.of.client).name), accounts);
}

using MakeDocument = reporting::ReportDocument (*)(Context&, const broker_ledger::LedgerQuery&,
                                                   const lookups::Directory&);

MaybeRefusal PrintLedgers(Context& context, const LedgerOptions& options, MakeDocument make) {
  const lookups::Directory directory(context.Connection());
  const Result<Scope> scope = ScopeOf(options.scope, directory);
  if (!scope) {
    return scope.Why();
  }
  const Result<std::vector<BrokerId>> brokers = BrokersOf(context, options.brokers);
  if (!brokers) {
    return brokers.Why();
  }
  ReportOutput output(context, options.output, options.scope.all);
  const auto clients = ClientsOf(*scope, directory);
  const auto progress = context.MakeProgress();
  progress->Begin(QStringLiteral("Writing broker ledgers"),
                  static_cast<std::int64_t>(clients.size()));
  std::int64_t done = 0;
  for (const ClientId client : clients) {
    output.Take(make(context, {{client, scope->year}, scope->period, *brokers}, directory),
                directory.Client(client).code);
    progress->Step(++done);
    progress->ThrowIfCancelled();
  }
  return std::nullopt;
}

}  // namespace

void AddBrokerLedger(CLI::App& group, Context& context, const reports::Report& report) {
  auto options = std::make_shared<LedgerOptions>();
  CLI::App* command = group.add_subcommand(report.command, report.about);
  AddPeriodOptions(*command, options->scope);
  command->add_option("--brokers", options->brokers, "Brokers, by name")->delimiter(',');
  AddOutputOptions(*command, options->output);
  SetWork(*command, context,
          [&context, options] { return PrintLedgers(context, *options, MakeLedger); });
}

void AddBrokerAccount(CLI::App& group, Context& context, const reports::Report& report) {
  auto options = std::make_shared<LedgerOptions>();
  CLI::App* command = group.add_subcommand(report.command, report.about);
  AddPeriodOptions(*command, options->scope);
  command->add_option("--broker", options->brokers, "Broker, by name; may be given several times")
      ->allow_extra_args(false);
  AddOutputOptions(*command, options->output);
  SetWork(*command, context,
          [&context, options] { return PrintLedgers(context, *options, MakeAccount); });
}

}  // namespace quorvane::cli
