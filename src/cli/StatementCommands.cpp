#include "cli/Command.h"
#include "cli/ReportCommand.h"
#include "reports/profit/ProfitDocument.h"

#include <map>

namespace quorvane::cli {
namespace {

using reporting::OutputFormat;

struct StatementOptions {
  ScopeOptions scope;
  std::string charges = "none";
  std::string gains = "all";
  std::string fo = "all";
  bool average = false;
  std::string layout = "detail";
  OutputOptions output;

  profit::Layout Layout() const {
    return layout == "summary" ? profit::Layout::kSummary : profit::Layout::kDetail;
  }
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

profit::ProfitQuery QueryOf(const StatementOptions& options, Scope scope) {
  profit::ProfitQuery query = profit::ProfitQuery::OfYear(scope.client, scope.year);
  query.from = scope.period.from;
  query.to = scope.period.to;
  query.accounts = std::move(scope.accounts);
  query.scrips = std::move(scope.scrips);
  query.charges = ChargesOf(options.charges);
  query.gains = GainsOf(options.gains);
  query.fo = FoOf(options.fo);
  query.average = options.average;
  return query;
}

/// Hands out a client's statement after the other.
class StatementCommand {
 public:
  StatementCommand(Context& context, profit::StatementMode mode, const StatementOptions& options)
      : context_(context),
        mode_(mode),
        options_(options),
        output_(context, options.output, options.scope.all),
        directory_(context.Connection()),
        progress_(context.MakeProgress()) {}

  MaybeRefusal Run() {
    Result<Scope> scope = ScopeOf(options_.scope, directory_);
    if (!scope) {
      return scope.Why();
    }
    query_ = QueryOf(options_, std::move(*scope));
    const records::Faults faults =
        profit::BuildStatement(context_.Connection(), query_, *progress_,
                               [this](ClientId client, std::span<const profit::StatementRow> rows) {
                                 Take(client, rows);
                               });
    InformOf(context_, faults);
    if (output_.IsFirst() && !(options_.scope.all && output_.ToFiles())) {
      Take(query_.client.value_or(ClientId{}), {});
    }
    return std::nullopt;
  }

 private:
  void Take(ClientId client, std::span<const profit::StatementRow> rows) {
    if (output_.IsFirst() && output_.ToFiles()) {
      progress_->Begin(QStringLiteral("Writing statements"),
                       static_cast<std::int64_t>(ClientCount()));
    }
    Write(client, rows);
    progress_->Step(++written_);
  }

  std::size_t ClientCount() const { return query_.client ? 1 : directory_.Clients().size(); }

  void Write(ClientId client, std::span<const profit::StatementRow> rows) {
    const std::string& name = directory_.Client(client).code;
    if (options_.output.Format() == OutputFormat::kCsv) {
      output_.TakeText(Csv(rows), name);
    } else {
      output_.Take(
          profit::MakeProfitDocument(mode_, options_.Layout(), query_, client, rows, directory_),
          name);
    }
  }

  std::string Csv(std::span<const profit::StatementRow> rows) const {
    std::string text;
    if (output_.IsFirst() || output_.ToFiles()) {
      profit::AppendStatementCsvHeader(text);
    }
    profit::AppendStatementCsv(text, rows, directory_);
    return text;
  }

  Context& context_;
  profit::StatementMode mode_;
  const StatementOptions& options_;
  ReportOutput output_;
  lookups::Directory directory_;
  std::unique_ptr<Progress> progress_;
  profit::ProfitQuery query_;
  std::int64_t written_ = 0;
};

}  // namespace

void AddProfitStatement(CLI::App& group, Context& context, const reports::Report& report,
                        profit::StatementMode mode) {
  auto options = std::make_shared<StatementOptions>();
  CLI::App* command = group.add_subcommand(report.command, report.about);
  AddScopeOptions(*command, options->scope);
  command->add_option("--charges", options->charges, "Charges in the cost")
      ->check(CLI::IsMember({"none", "stax", "stt", "both"}));
  command->add_option("--gains", options->gains, "Kinds of gain")
      ->check(CLI::IsMember({"all", "speculation", "non-speculation"}));
  command->add_option("--fo", options->fo, "Futures and options")
      ->check(CLI::IsMember({"all", "fo", "non-fo"}));
  command->add_flag("--average", options->average, "Cost at the average rate");
  command->add_option("--layout", options->layout)->check(CLI::IsMember({"detail", "summary"}));
  AddOutputOptions(*command, options->output);
  SetWork(*command, context,
          [&context, options, mode] { return StatementCommand(context, mode, *options).Run(); });
}

}  // namespace quorvane::cli
