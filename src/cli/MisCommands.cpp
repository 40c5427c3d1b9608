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

std::vector<ClientId> ClientsOf(const MisOptions& options, const mis::Names& names) {
  if (!options.group.empty()) {
    auto clients = names.ClientsOf(QString::fromStdString(options.group));
    if (clients.empty()) {
      throw Refused("there is no client group \"" + options.group + "\"");
    }
    return clients;
  }
  std::vector<ClientId> clients;
  for (const std::string& code : options.clients) {
    clients.push_back(ClientOf(names.Directory(), code));
  }
  return clients;
}

text::Date DayInYear(const std::string& option, const std::string& text, text::FinancialYear year) {
  const text::Date day = DateOf(option, text);
  if (!year.Contains(day)) {
    throw Refused(option + " " + text + " lies outside the financial year " + year.Utf8());
  }
  return day;
}

mis::MisQuery QueryOf(mis::ReportKind kind, const MisOptions& options, const mis::Names& names) {
  mis::MisQuery query = mis::MisQuery::OfYear(kind, GroupingOf(options.by), YearOf(options.year));
  query.detail = !options.consolidated;
  query.clients = ClientsOf(options, names);
  if (!options.from.empty()) {
    query.period.from = DayInYear("--from", options.from, query.year);
  }
  if (!options.to.empty()) {
    query.period.to = DayInYear("--to", options.to, query.year);
  }
  if (!options.as_on.empty()) {
    query.period.to = DayInYear("--as-on", options.as_on, query.year);
  }
  if (query.period.from > query.period.to) {
    throw Refused("From Date Can't be Greater than To Date.");
  }
  return query;
}

void Run(Context& context, mis::ReportKind kind, const MisOptions& options) {
  ReportOutput output(context, options.output, false);
  const mis::MisQuery query = QueryOf(kind, options, mis::Names(context.Connection()));
  const auto progress = context.MakeProgress();
  output.Take(mis::MakeMisReport(context.Connection(), query, *progress), "mis");
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
  command->callback([&context, options, kind] { Run(context, kind, *options); });
}

}  // namespace quorvane::cli
