#include "cli/Command.h"
#include "cli/Statement.h"
#include "reports/output/TextWriter.h"
#include "reports/profit/StatementCsv.h"

#include <QDir>

#include <map>

namespace quorvane::cli {

std::string FormatStatement(OutputFormat format, profit::StatementMode mode, profit::Layout layout,
                            const profit::StatementQuery& query, ClientId client,
                            std::span<const profit::StatementRow> rows,
                            const lookups::Directory& directory) {
  if (format == OutputFormat::kText) {
    return report::WriteText(
        profit::MakeStatementDocument(mode, layout, query, client, rows, directory));
  }
  std::string out;
  profit::AppendStatementCsvHeader(out);
  profit::AppendStatementCsv(out, rows, directory);
  return out;
}

std::string Extension(OutputFormat format) {
  return format == OutputFormat::kText ? ".txt" : ".csv";
}

namespace {

struct StatementOptions {
  std::string client;
  bool all = false;
  std::string year;
  std::string from;
  std::string to;
  std::vector<std::string> accounts;
  std::vector<std::string> scrips;
  std::string charges = "none";
  std::string gains = "all";
  std::string fo = "all";
  bool average = false;
  std::string layout = "detail";
  std::string format = "text";
  std::string out;
};

gains::ChargeChoice ChargesOf(const std::string& word) {
  return {word == "stax" || word == "both", word == "stt" || word == "both"};
}

profit::GainFilter GainsOf(const std::string& word) {
  static const std::map<std::string, profit::GainFilter> kWords{
      {"all", profit::GainFilter::kAll},
      {"speculation", profit::GainFilter::kSpeculation},
      {"non-speculation", profit::GainFilter::kNonSpeculation}};
  return kWords.at(word);
}

gains::FoChoice FoOf(const std::string& word) {
  static const std::map<std::string, gains::FoChoice> kWords{{"all", gains::FoChoice::kAll},
                                                             {"fo", gains::FoChoice::kFo},
                                                             {"non-fo", gains::FoChoice::kNonFo}};
  return kWords.at(word);
}

void AddAccounts(profit::StatementQuery& query, const lookups::Directory& directory,
                 const std::vector<std::string>& numbers) {
  for (const std::string& number : numbers) {
    if (query.client) {
      query.accounts.push_back(AccountOf(directory, *query.client, number));
      continue;
    }
    const auto found = directory.FindAccounts(number);
    if (found.empty()) {
      throw Refused("there is no demat account \"" + number + "\"");
    }
    for (const lookups::AccountEntry* account : found) {
      query.accounts.push_back(account->id);
    }
  }
}

profit::StatementQuery QueryOf(const StatementOptions& options,
                               const lookups::Directory& directory) {
  std::optional<ClientId> client;
  if (!options.all) {
    client = ClientOf(directory, options.client);
  }
  profit::StatementQuery query = profit::StatementQuery::OfYear(client, YearOf(options.year));
  if (!options.from.empty()) {
    query.from = DateOf("--from", options.from);
  }
  if (!options.to.empty()) {
    query.to = DateOf("--to", options.to);
  }
  if (query.from > query.to) {
    throw Refused("From Date Can't be Greater than To Date.");
  }
  AddAccounts(query, directory, options.accounts);
  for (const std::string& code : options.scrips) {
    const lookups::ScripEntry* scrip = directory.FindScrip(code);
    if (scrip == nullptr) {
      throw Refused("there is no scrip \"" + code + "\"");
    }
    query.scrips.push_back(scrip->id);
  }
  query.charges = ChargesOf(options.charges);
  query.gains = GainsOf(options.gains);
  query.fo = FoOf(options.fo);
  query.average = options.average;
  return query;
}

/// A file name that no client code can turn into a path.
std::string FileNameOf(const std::string& code) {
  std::string name;
  for (const char c : code) {
    const bool plain = c != '/' && c != '\\' && c != ':' && static_cast<unsigned char>(c) >= ' ';
    name += plain ? c : '_';
  }
  return name.starts_with('.') ? "_" + name : name;
}

class StatementCommand {
 public:
  StatementCommand(Context& context, profit::StatementMode mode, const StatementOptions& options)
      : context_(context),
        mode_(mode),
        options_(options),
        directory_(context.Connection()),
        query_(QueryOf(options, directory_)) {}

  void Run() {
    const auto progress = context_.MakeProgress();
    profit::BuildStatement(context_.Connection(), query_, *progress,
                           [this](ClientId client, std::span<const profit::StatementRow> rows) {
                             Take(client, rows);
                           });
    if (written_ == 0) {
      Take(query_.client.value_or(ClientId{}), {});
    }
    if (!options_.out.empty() && !options_.all) {
      WriteFile(options_.out, text_);
    }
  }

 private:
  /// One client goes to standard output or a file, all clients to standard output one after the
  /// other or each to a file of its own.
  void Take(ClientId client, std::span<const profit::StatementRow> rows) {
    const OutputFormat format = options_.format == "csv" ? OutputFormat::kCsv : OutputFormat::kText;
    const bool to_folder = options_.all && !options_.out.empty();
    if (format == OutputFormat::kCsv && !to_folder) {
      text_.clear();
      if (written_ == 0) {
        profit::AppendStatementCsvHeader(text_);
      }
      profit::AppendStatementCsv(text_, rows, directory_);
    } else {
      text_ = FormatStatement(
          format, mode_,
          options_.layout == "summary" ? profit::Layout::kSummary : profit::Layout::kDetail, query_,
          client, rows, directory_);
    }
    if (to_folder && client) {
      QDir().mkpath(QString::fromStdString(options_.out));
      WriteFile(options_.out + "/" + FileNameOf(directory_.Client(client).code) + Extension(format),
                text_);
    } else if (options_.out.empty()) {
      Print(written_ > 0 && format == OutputFormat::kText ? "\n" + text_ : text_);
    }
    ++written_;
  }

  Context& context_;
  profit::StatementMode mode_;
  const StatementOptions& options_;
  lookups::Directory directory_;
  profit::StatementQuery query_;
  std::string text_;
  std::size_t written_ = 0;
};

void AddStatement(CLI::App& statement, Context& context, const char* name, const char* what,
                  profit::StatementMode mode) {
  auto options = std::make_shared<StatementOptions>();
  CLI::App* command = statement.add_subcommand(name, what);
  auto* client = command->add_option("--client", options->client, "Client code");
  auto* all = command->add_flag("--all", options->all, "Every client");
  client->excludes(all);
  command->add_option("--year", options->year, "Financial year, such as 2011-12")->required();
  command->add_option("--from", options->from, "First day, dd/mm/yyyy");
  command->add_option("--to", options->to, "Last day, dd/mm/yyyy");
  command->add_option("--accounts", options->accounts, "Demat accounts, by number")->delimiter(',');
  command->add_option("--scrips", options->scrips, "Scrips, by code")->delimiter(',');
  command->add_option("--charges", options->charges, "Charges in the cost")
      ->check(CLI::IsMember({"none", "stax", "stt", "both"}));
  command->add_option("--gains", options->gains, "Kinds of gain")
      ->check(CLI::IsMember({"all", "speculation", "non-speculation"}));
  command->add_option("--fo", options->fo, "Futures and options")
      ->check(CLI::IsMember({"all", "fo", "non-fo"}));
  command->add_flag("--average", options->average, "Cost at the average rate");
  command->add_option("--layout", options->layout)->check(CLI::IsMember({"detail", "summary"}));
  command->add_option("--format", options->format)->check(CLI::IsMember({"text", "csv"}));
  command->add_option("--out", options->out, "File; with --all a folder with a file a client");
  command->callback([&context, options, mode] {
    if (options->client.empty() && !options->all) {
      throw WrongUsage("expected --client CODE or --all");
    }
    StatementCommand(context, mode, *options).Run();
  });
}

}  // namespace

void AddStatementCommands(CLI::App& app, Context& context) {
  CLI::App* statement = app.add_subcommand("statement", "A statement of a client");
  statement->require_subcommand(1);
  AddStatement(*statement, context, "profit", "Scriptwise profitability statement",
               profit::StatementMode::kProfit);
  AddStatement(*statement, context, "capital-gain", "Capital gain statement",
               profit::StatementMode::kCapitalGain);
}

}  // namespace quorvane::cli
