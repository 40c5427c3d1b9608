#include "cli/Command.h"
#include "cli/ReportCommand.h"
#include "reports/mis/MisReport.h"
#include "reports/mis/Names.h"

#include <map>

namespace quorvane::cli {
namespace {

struct MisOptions {
  std::string by = "script";
  std::string group;
  std::vector<std::string> clients;
  std::string year;
  std::string from;
  std::string to;
  std::string as_on;
  bool detail = false;
  bool consolidated = false;
  OutputOptions output;
};

mis::Grouping GroupingOf(const std::string& word) {
  static const std::map<std::string, mis::Grouping> kWords{{"script", mis::Grouping::kScrip},
                                                           {"account", mis::Grouping::kAccount},
                                                           {"client", mis::Grouping::kClient}};
  return kWords.at(word);
}

Result<std::vector<ClientId>> ClientsOf(const MisOptions& options, const mis::Names& names) {
  if (!options.group.empty()) {
    auto clients = names.ClientsOf(QString::fromStdString(options.group));
    if (clients.empty()) {
      return RefusalOf("there is no client group \"" + options.group + "\"");
    }
    return clients;
  }
  std::vector<ClientId> clients;
  for (const std::string& code : options.clients) {
    const Result<ClientId> client = ClientOf(names.Directory(), code);
    if (!client) {
      return client.Why();
    }
    clients.push_back(*client);
  }
  return clients;
}

/// The day that an option names, or `day` when it names none.
Result<text::Date> DayInYear(const std::string& option, const std::string& text,
                             text::FinancialYear year, text::Date day) {
  if (text.empty()) {
    return day;
  }
  day = DateOf(option, text);
  if (!year.Contains(day)) {
    return RefusalOf(option + " " + text + " lies outside the financial year " + year.Utf8());
  }
  return day;
}

/// --to and --as-on exclude each other.
Result<reporting::Period> PeriodOf(const MisOptions& options, text::FinancialYear year) {
  const auto from = DayInYear("--from", options.from, year, year.FirstDay());
  if (!from) {
    return from.Why();
  }
  const auto to = options.as_on.empty() ? DayInYear("--to", options.to, year, year.LastDay())
                                        : DayInYear("--as-on", options.as_on, year, year.LastDay());
  if (!to) {
    return to.Why();
  }
  if (*from > *to) {
    return RefusalOf("From Date Can't be Greater than To Date.");
  }
  return reporting::Period{*from, *to};
}

MaybeRefusal PrintReport(Context& context, mis::ReportKind kind, const MisOptions& options) {
  ReportOutput output(context, options.output, false);
  const mis::Names names(context.Connection());
  mis::MisQuery query = mis::MisQuery::OfYear(kind, GroupingOf(options.by), YearOf(options.year));
  query.detail = !options.consolidated;
  const Result<std::vector<ClientId>> clients = ClientsOf(options, names);
  if (!clients) {
    return clients.Why();
  }
  query.clients = *clients;
  const Result<reporting::Period> period = PeriodOf(options, query.year);
  if (!period) {
    return period.Why();
  }
  query.period = *period;
  const auto progress = context.MakeProgress();
  output.Take(mis::MakeMisReport(context.Connection(), query, *progress), "mis");
  return std::nullopt;
}

}  // namespace

void AddMisReport(CLI::App& group, Context& context, const reports::Report& report,
                  mis::ReportKind kind) {
  auto options = std::make_shared<MisOptions>();
  CLI::App* command = group.add_subcommand(report.command, report.about);
  command->add_option("--by", options->by, "Grouping")
      ->check(CLI::IsMember({"script", "account", "client"}))
      ->capture_default_str();
  auto* of_group = command->add_option("--group", options->group, "Every client of a group");
  command->add_option("--clients", options->clients, "Clients, by code; all without")
      ->delimiter(',')
      ->excludes(of_group);
  command->add_option("--year", options->year, "Financial year, such as 2011-12")->required();
  command->add_option("--from", options->from,
                      "First day, dd/mm/yyyy; of no account for a report of one day");
  auto* to = command->add_option("--to", options->to, "Last day, dd/mm/yyyy");
  command->add_option("--as-on", options->as_on, "Day of the valuation, or last day, dd/mm/yyyy")
      ->excludes(to);
  auto* consolidated = command->add_flag("--consolidated", options->consolidated, "A line a scrip");
  command->add_flag("--detail", options->detail, "A line a movement or a lot, as without a choice")
      ->excludes(consolidated);
  AddOutputOptions(*command, options->output);
  SetWork(*command, context,
          [&context, options, kind] { return PrintReport(context, kind, *options); });
}

}  // namespace quorvane::cli
