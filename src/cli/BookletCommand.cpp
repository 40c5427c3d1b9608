#include "cli/ReportCommand.h"
#include "reports/booklet/YearBooklet.h"

namespace quorvane::cli {
namespace {

struct BookletOptions {
  std::string client;
  bool family = false;
  std::string year;
  std::vector<std::string> parts;
  std::string out;
};

std::vector<std::string> PartNames() {
  std::vector<std::string> names;
  for (const booklet::PartEntry& entry : booklet::Parts()) {
    names.emplace_back(entry.name);
  }
  return names;
}

std::set<booklet::Part> PartsOf(const BookletOptions& options) {
  std::set<booklet::Part> parts;
  for (const std::string& name : options.parts.empty() ? PartNames() : options.parts) {
    parts.insert(*booklet::PartNamed(name));
  }
  return parts;
}

MaybeRefusal WriteBooklet(Context& context, const BookletOptions& options) {
  const text::FinancialYear year = YearOf(options.year);
  const lookups::Directory directory(context.Connection());
  const Result<ClientId> client = ClientOf(directory, options.client);
  if (!client) {
    return client.Why();
  }
  const auto progress = context.MakeProgress();
  const auto made = booklet::MakeBooklet(context.Connection(),
                                         {.of = {*client, year},
                                          .family = options.family,
                                          .parts = PartsOf(options),
                                          .today = text::Today(),
                                          .data_folder = context.Session().folders.data},
                                         *progress);
  if (!made) {
    return made.Why();
  }
  reporting::WriteBooklet(*made, QString::fromStdString(options.out), *progress);
  return std::nullopt;
}

}  // namespace

void AddBooklet(CLI::App& app, Context& context, const reports::Report& report) {
  auto options = std::make_shared<BookletOptions>();
  CLI::App* command = app.add_subcommand(report.command, report.about);
  command->add_option("--client", options->client, "Client code")->required();
  command->add_flag("--family", options->family, "The client and all others of the same group");
  command->add_option("--year", options->year, "Financial year, such as 2024-25")->required();
  command->add_option("--parts", options->parts, "What the booklet holds; everything without it")
      ->delimiter(',')
      ->check(CLI::IsMember(PartNames()));
  command->add_option("--out", options->out, "File, a PDF")->required();
  SetWork(*command, context, [&context, options] { return WriteBooklet(context, *options); });
}

}  // namespace quorvane::cli
