#include "cli/Command.h"
#include "cli/ReportCommand.h"
#include "reports/demat/DematStatement.h"
#include "reports/demat/TransactionDocument.h"

namespace quorvane::cli {
namespace {

using reporting::OutputFormat;

struct DematOptions {
  ScopeOptions scope;
  std::string layout = "detail";
  bool account_wise = false;
  OutputOptions output;
};

/// The demat statement for ClientReports.
struct DematReport {
  using Part = demat::ScripMovements;

  DematReport(const DematOptions&, Scope scope)
      : query{scope.client, scope.year, scope.period, std::move(scope.accounts),
              std::move(scope.scrips)} {}

  template <class Give>
  records::Faults Build(database::Connection& connection, Progress& progress,
                        const Give& give) const {
    return demat::BuildDematStatement(connection, query, progress, give);
  }
  reporting::ReportDocument Document(ClientId client, std::span<const Part> parts,
                                     const lookups::Directory& directory) const {
    return demat::MakeDematDocument(query, client, parts, directory);
  }
  static void Header(std::string& out) { demat::AppendDematCsvHeader(out); }
  static void Csv(std::string& out, std::span<const Part> parts,
                  const lookups::Directory& directory) {
    demat::AppendDematCsv(out, parts, directory);
  }

  demat::DematQuery query;
};

/// The transaction report for ClientReports.
struct TransactionsReport {
  using Part = demat::TransactionSection;

  TransactionsReport(const DematOptions& options, Scope scope)
      : query{scope.client,
              scope.year,
              scope.period,
              std::move(scope.accounts),
              std::move(scope.scrips),
              options.layout == "summary" ? demat::TransactionLayout::kSummarized
                                          : demat::TransactionLayout::kDetailed,
              options.account_wise} {}

  template <class Give>
  records::Faults Build(database::Connection& connection, Progress& progress,
                        const Give& give) const {
    return demat::BuildTransactions(connection, query, progress, give);
  }
  reporting::ReportDocument Document(ClientId client, std::span<const Part> parts,
                                     const lookups::Directory& directory) const {
    return demat::MakeTransactionDocument(query, client, parts, directory);
  }
  static void Header(std::string& out) { demat::AppendTransactionCsvHeader(out); }
  static void Csv(std::string& out, std::span<const Part> parts,
                  const lookups::Directory& directory) {
    demat::AppendTransactionCsv(out, parts, directory);
  }

  demat::TransactionQuery query;
};

/// Hands out a client's report after the other.
template <class Report>
class ClientReports {
 public:
  ClientReports(Context& context, const DematOptions& options)
      : context_(context),
        options_(options),
        output_(context, options.output, options.scope.all),
        directory_(context.Connection()) {}

  MaybeRefusal Run() {
    const Result<Scope> scope = ScopeOf(options_.scope, directory_);
    if (!scope) {
      return scope.Why();
    }
    const Report report(options_, *scope);
    using Part = typename Report::Part;
    const auto progress = context_.MakeProgress();
    const auto take = [&](ClientId client, std::span<const Part> parts) {
      Take(report, client, parts);
    };
    InformOf(context_, report.Build(context_.Connection(), *progress, take));
    if (output_.IsFirst() && !(options_.scope.all && output_.ToFiles())) {
      take(scope->client.value_or(ClientId{}), {});
    }
    return std::nullopt;
  }

 private:
  void Take(const Report& report, ClientId client, std::span<const typename Report::Part> parts) {
    const std::string& name = directory_.Client(client).code;
    if (options_.output.Format() != OutputFormat::kCsv) {
      output_.Take(report.Document(client, parts, directory_), name);
      return;
    }
    std::string text;
    if (output_.IsFirst() || output_.ToFiles()) {
      Report::Header(text);
    }
    Report::Csv(text, parts, directory_);
    output_.TakeText(text, name);
  }

  Context& context_;
  const DematOptions& options_;
  ReportOutput output_;
  lookups::Directory directory_;
};

}  // namespace

void AddDematStatement(CLI::App& group, Context& context, const reports::Report& report) {
  auto options = std::make_shared<DematOptions>();
  CLI::App* demat = group.add_subcommand(report.command, report.about);
  AddScopeOptions(*demat, options->scope);
  AddOutputOptions(*demat, options->output);
  SetWork(*demat, context,
          [&context, options] { return ClientReports<DematReport>(context, *options).Run(); });
}

void AddTransactions(CLI::App& group, Context& context, const reports::Report& report) {
  auto options = std::make_shared<DematOptions>();
  CLI::App* transactions = group.add_subcommand(report.command, report.about);
  AddScopeOptions(*transactions, options->scope);
  transactions
      ->add_option("--layout", options->layout,
                   "detail: every line; summary: one line a bill, scrip and side")
      ->check(CLI::IsMember({"detail", "summary"}));
  transactions->add_flag("--account-wise", options->account_wise, "Each account by itself");
  AddOutputOptions(*transactions, options->output);
  SetWork(*transactions, context, [&context, options] {
    return ClientReports<TransactionsReport>(context, *options).Run();
  });
}

}  // namespace quorvane::cli
