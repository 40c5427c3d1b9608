#include "cli/ReportCommand.h"
#include "reports/tax/Schedule112A.h"
#include "reports/tax/TaxDocument.h"

#include <fmt/format.h>

#include <algorithm>

namespace quorvane::cli {
namespace {

struct TaxOptions {
  std::string client;
  bool all = false;
  bool family = false;
  bool with_open_points = false;
  std::string year;
  OutputOptions output;
};

/// What every work on a tax year starts from.
class TaxDesk {
 public:
  static Result<std::unique_ptr<TaxDesk>> Open(Context& context, const TaxOptions& options) {
    if (options.year.empty() || options.client.empty() == !options.all) {
      throw WrongUsage("expected --client CODE or --all, and --year");
    }
    const text::FinancialYear year = YearOf(options.year);
    const QString& data = context.Session().folders.data;
    Result<tax_year::Law> law = tax_year::Law::Load(data, year);
    if (!law) {
      return law.Why();
    }
    auto desk = std::make_unique<TaxDesk>(context, std::move(*law));
    if (options.all) {
      for (const lookups::ClientEntry& client : desk->directory.Clients()) {
        desk->clients.push_back(client.id);
      }
      return desk;
    }
    const Result<ClientId> client = ClientOf(desk->directory, options.client);
    if (!client) {
      return client.Why();
    }
    desk->clients = options.family
                        ? tax_year::FamilyByCode(context.Connection(), desk->directory, *client)
                        : std::vector{*client};
    return desk;
  }

  TaxDesk(Context& context, tax_year::Law the_law)
      : directory(context.Connection()),
        law(std::move(the_law)),
        connection_(context.Connection()),
        progress_(context.MakeProgress()) {}

  std::vector<tax_year::Member> Read() {
    return tax_year::ReadMembers(connection_, directory, law, clients, *progress_);
  }

  const std::string& CodeOf(const tax_year::Member& member) const {
    return directory.Client(member.tax.year.of.client).code;
  }

  const lookups::Directory directory;
  const tax_year::Law law;
  std::vector<ClientId> clients;

 private:
  database::Connection& connection_;
  std::unique_ptr<Progress> progress_;
};

std::string CsvOf(const tax_year::Member& member, const lookups::Directory& directory) {
  std::string csv;
  tax_year::AppendTaxCsvHeader(csv);
  tax_year::AppendTaxCsv(csv, member.tax, directory);
  return csv;
}

void TellOpenPoints(Context& context, const TaxDesk& desk, const tax_year::Member& member) {
  if (const auto open = std::ranges::count_if(member.points, &tax_year::Point::open)) {
    context.Inform(
        fmt::format("{}: {} open points; see quorvanectl tax check", desk.CodeOf(member), open));
  }
}

MaybeRefusal PrintTax(Context& context, const TaxOptions& options) {
  const bool csv = options.output.Format() == reporting::OutputFormat::kCsv;
  if (csv && options.all && options.output.out.empty()) {
    throw WrongUsage("--format csv with --all needs --out FOLDER");
  }
  const auto desk = TaxDesk::Open(context, options);
  if (!desk) {
    return desk.Why();
  }
  ReportOutput output(context, options.output, options.all);
  const std::vector<tax_year::Member> members = (*desk)->Read();
  if (options.family) {
    output.Take(tax_year::MakeFamilyDocument((*desk)->law.rules, members, (*desk)->directory),
                options.client);
    return std::nullopt;
  }
  for (const tax_year::Member& member : members) {
    const std::string& code = (*desk)->CodeOf(member);
    if (csv) {
      output.TakeText(CsvOf(member, (*desk)->directory), code);
    } else {
      output.Take(tax_year::MakeTaxDocument((*desk)->law.rules, member.tax, member.points,
                                            (*desk)->directory),
                  code);
    }
    TellOpenPoints(context, **desk, member);
  }
  return std::nullopt;
}

std::string Line(const tax_year::Point& point) {
  return (point.open ? "open: " : "hint: ") + point.text.toStdString() + "\n";
}

MaybeRefusal PrintUpload(Context& context, const TaxOptions& options) {
  const auto desk = TaxDesk::Open(context, options);
  if (!desk) {
    return desk.Why();
  }
  const tax_year::Member member = std::move((*desk)->Read().front());
  if (tax_year::HasOpen(member.points) && !options.with_open_points) {
    std::string text = "the check list has open points; settle them, or say --with-open-points\n";
    for (const tax_year::Point& point : member.points) {
      text += Line(point);
    }
    return RefusalOf(text);
  }
  const Result<std::string> upload =
      tax_year::MakeSchedule112A((*desk)->law.rules, member.tax.year, (*desk)->directory,
                                 rates::AllIsins(context.Connection()));
  if (!upload) {
    return upload.Why();
  }
  if (options.output.out.empty()) {
    Print(*upload);
  } else {
    WriteFile(options.output.out, *upload);
  }
  return std::nullopt;
}

MaybeRefusal PrintPoints(Context& context, const TaxOptions& options) {
  const auto desk = TaxDesk::Open(context, options);
  if (!desk) {
    return desk.Why();
  }
  for (const tax_year::Member& member : (*desk)->Read()) {
    for (const tax_year::Point& point : member.points) {
      Print((*desk)->CodeOf(member) + ": " + Line(point));
    }
    if (tax_year::HasOpen(member.points)) {
      context.status = kRefused;
    }
  }
  return std::nullopt;
}

MaybeRefusal CarryLosses(Context& context, const TaxOptions& options) {
  const auto desk = TaxDesk::Open(context, options);
  if (!desk) {
    return desk.Why();
  }
  tax_year::CarryLosses(context.Connection(), (*desk)->Read());
  return std::nullopt;
}

CLI::App* AddCommand(CLI::App& parent, Context& context, const char* name, const char* about,
                     MaybeRefusal (*work)(Context&, const TaxOptions&), bool several,
                     const std::shared_ptr<TaxOptions>& options) {
  CLI::App* command = parent.add_subcommand(name, about);
  auto* client = command->add_option("--client", options->client, "Client code");
  if (several) {
    command->add_flag("--all", options->all, "Every client")->excludes(client);
  }
  command->add_option("--year", options->year, "Financial year, such as 2024-25");
  SetWork(*command, context, [&context, options, work] { return work(context, *options); });
  return command;
}

}  // namespace

void AddTaxCommands(CLI::App& app, Context& context, const reports::Report& report) {
  auto options = std::make_shared<TaxOptions>();
  CLI::App* tax = AddCommand(app, context, report.command, report.about, PrintTax, true, options);
  tax->add_flag("--family", options->family, "The client's group on one page");
  AddOutputOptions(*tax, options->output);
  SetWork(*tax, context, [&context, options, tax] {
    return tax->get_subcommands().empty() ? PrintTax(context, *options) : context.refusal;
  });
  auto upload_options = std::make_shared<TaxOptions>();
  CLI::App* upload = AddCommand(*tax, context, "schedule-112a", "Upload file of schedule 112A",
                                PrintUpload, false, upload_options);
  upload->add_option("--out", upload_options->output.out, "File");
  upload->add_flag("--with-open-points", upload_options->with_open_points,
                   "Also while the check list has open points");
  AddCommand(*tax, context, "check", "What is open before filing; status 1 for open points",
             PrintPoints, true, std::make_shared<TaxOptions>());
  AddCommand(*tax, context, "carry-losses", "Bring forward what the year before leaves of losses",
             CarryLosses, true, std::make_shared<TaxOptions>());
}

}  // namespace quorvane::cli
