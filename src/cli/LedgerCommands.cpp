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

ClientYear ClientYearOf(Context& context, const YearOptions& options) {
  return {ClientOf(lookups::Directory(context.Connection()), options.client), YearOf(options.year)};
}

void Rebuild(Context& context, const YearOptions& options) {
  std::optional<ClientYear> of;
  if (!options.all) {
    if (options.client.empty() || options.year.empty()) {
      throw WrongUsage("expected --client CODE --year YEAR or --all");
    }
    of = ClientYearOf(context, options);
  }
  const auto progress = context.MakeProgress();
  const std::size_t changed = ledger::RebuildStock(context.Connection(), of, *progress);
  context.Inform(fmt::format("Stock is Updated Successfully !!! Lots changed: {}", changed));
}

void CarryForwardStock(Context& context, const YearOptions& options) {
  const ClientYear of = ClientYearOf(context, options);
  const auto progress = context.MakeProgress();
  std::size_t carried = 0;
  if (const MaybeRefusal refusal =
          opening_stock::CarryForward(context.Connection(), of, *progress, carried)) {
    throw Refused(refusal->text.toStdString());
  }
  context.Inform(
      fmt::format("{} lots carried forward from {}", carried, of.year.Previous().Utf8()));
}

void CarryForwardBrokers(Context& context, const YearOptions& options) {
  const ClientYear of = ClientYearOf(context, options);
  const std::size_t written =
      broker_money::BrokerOpeningBook(context.Connection(), of).CarryForward();
  context.Inform(fmt::format("balances of {} brokers carried forward from {}", written,
                             of.year.Previous().Utf8()));
}

void AddCarryForward(CLI::App& carry, Context& context, const char* name, const char* what,
                     void (*work)(Context&, const YearOptions&)) {
  auto options = std::make_shared<YearOptions>();
  CLI::App* command = carry.add_subcommand(name, what);
  command->add_option("--client", options->client, "Client code")->required();
  command->add_option("--year", options->year, "Year that opens with them")->required();
  command->callback([&context, options, work] { work(context, *options); });
}

}  // namespace

void AddLedgerCommands(CLI::App& app, Context& context) {
  auto rebuild_options = std::make_shared<YearOptions>();
  CLI::App* rebuild = app.add_subcommand("rebuild", "Recompute the holdings from the documents");
  rebuild->add_option("--client", rebuild_options->client, "Client code");
  rebuild->add_option("--year", rebuild_options->year, "Financial year, such as 2011-12");
  rebuild->add_flag("--all", rebuild_options->all, "Every client and year");
  rebuild->callback([&context, rebuild_options] { Rebuild(context, *rebuild_options); });

  CLI::App* carry = app.add_subcommand("carry-forward", "Bring closing balances into a year");
  carry->require_subcommand(1);
  AddCarryForward(*carry, context, "stock", "Lots left at the end of the year before",
                  CarryForwardStock);
  AddCarryForward(*carry, context, "brokers", "Brokers' balances at the end of the year before",
                  CarryForwardBrokers);
}

}  // namespace quorvane::cli
