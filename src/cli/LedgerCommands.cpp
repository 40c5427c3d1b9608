#include "cli/Command.h"
#include "core/ledger/Rebuild.h"
#include "transactions/broker_money/BrokerOpeningBook.h"
#include "transactions/opening_stock/OpeningStockBook.h"

#include <fmt/format.h>

namespace quorvane::cli {
namespace {

struct YearOptions {
  std::string client;
  std::string year;
  bool all = false;
};

Result<ClientYear> ClientYearOf(Context& context, const YearOptions& options) {
  const Result<ClientId> client =
      ClientOf(lookups::Directory(context.Connection()), options.client);
  if (!client) {
    return client.Why();
  }
  return ClientYear{*client, YearOf(options.year)};
}

MaybeRefusal Rebuild(Context& context, const YearOptions& options) {
  std::optional<ClientYear> of;
  if (!options.all) {
    if (options.client.empty() || options.year.empty()) {
      throw WrongUsage("expected --client CODE --year YEAR or --all");
    }
    const Result<ClientYear> one = ClientYearOf(context, options);
    if (!one) {
      return one.Why();
    }
    of = *one;
  }
  const auto progress = context.MakeProgress();
  const std::size_t changed = ledger::RebuildStock(context.Connection(), of, *progress);
  context.Inform(fmt::format("Stock is Updated Successfully !!! Lots changed: {}", changed));
  return std::nullopt;
}

MaybeRefusal CarryForwardStock(Context& context, const ClientYear& of) {
  const auto progress = context.MakeProgress();
  const Result<std::size_t> carried =
      opening_stock::CarryForward(context.Connection(), of, *progress);
  if (carried) {
    context.Inform(
        fmt::format("{} lots carried forward from {}", *carried, of.year.Previous().Utf8()));
  }
  return carried.Refused();
}

MaybeRefusal CarryForwardBrokers(Context& context, const ClientYear& of) {
  const std::size_t written =
      broker_money::BrokerOpeningBook(context.Connection(), of).CarryForward();
  context.Inform(fmt::format("balances of {} brokers carried forward from {}", written,
                             of.year.Previous().Utf8()));
  return std::nullopt;
}

void AddCarryForward(CLI::App& carry, Context& context, const char* name, const char* what,
                     MaybeRefusal (*work)(Context&, const ClientYear&)) {
  auto options = std::make_shared<YearOptions>();
  CLI::App* command = carry.add_subcommand(name, what);
  command->add_option("--client", options->client, "Client code")->required();
  command->add_option("--year", options->year, "Year that opens with them")->required();
  SetWork(*command, context, [&context, options, work] {
    const Result<ClientYear> of = ClientYearOf(context, *options);
    return of ? work(context, *of) : of.Refused();
  });
}

}  // namespace

void AddLedgerCommands(CLI::App& app, Context& context) {
  auto rebuild_options = std::make_shared<YearOptions>();
  CLI::App* rebuild = app.add_subcommand("rebuild", "Recompute the holdings from the documents");
  rebuild->add_option("--client", rebuild_options->client, "Client code");
  rebuild->add_option("--year", rebuild_options->year, "Financial year, such as 2011-12");
  rebuild->add_flag("--all", rebuild_options->all, "Every client and year");
  SetWork(*rebuild, context,
          [&context, rebuild_options] { return Rebuild(context, *rebuild_options); });

  CLI::App* carry = app.add_subcommand("carry-forward", "Bring closing balances into a year");
  carry->require_subcommand(1);
  AddCarryForward(*carry, context, "stock", "Lots left at the end of the year before",
                  CarryForwardStock);
  AddCarryForward(*carry, context, "brokers", "Brokers' balances at the end of the year before",
                  CarryForwardBrokers);
}

}  // namespace quorvane::cli
