#pragma once

#include "cli/Command.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/output/WriteReport.h"
#include "reporting/period/Period.h"
#include "reports/Reports.h"
#include "reports/mis/MisQuery.h"
#include "reports/profit/ProfitDocument.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quorvane::cli {

/// Adds the command of a report, with its options, to its group. There is one for each kind of
/// report; ReportCommand.cpp calls the one of each report in the register.
void AddProfitStatement(CLI::App& group, Context& context, const reports::Report& report,
                        profit::StatementMode mode);
void AddBrokerLedger(CLI::App& group, Context& context, const reports::Report& report);
void AddDematStatement(CLI::App& group, Context& context, const reports::Report& report);
void AddTransactions(CLI::App& group, Context& context, const reports::Report& report);
void AddDividends(CLI::App& group, Context& context, const reports::Report& report);
void AddScripPage(CLI::App& group, Context& context, const reports::Report& report);
void AddTaxCommands(CLI::App& app, Context& context, const reports::Report& report);
void AddBrokerAccount(CLI::App& group, Context& context, const reports::Report& report);
void AddReturns(CLI::App& app, Context& context, const reports::Report& report);
void AddBooklet(CLI::App& app, Context& context, const reports::Report& report);
void AddMisReport(CLI::App& group, Context& context, const reports::Report& report,
                  mis::ReportKind kind);

/// The options that statements share: client, period, accounts and scrips.
struct ScopeOptions {
  std::string client;
  bool all = false;
  std::string year;
  std::string from;
  std::string to;
  std::vector<std::string> accounts;
  std::vector<std::string> scrips;
};

/// Adds --client or --all, --year, --from and --to.
void AddPeriodOptions(CLI::App& command, ScopeOptions& options);

/// The same with --accounts and --scrips.
void AddScopeOptions(CLI::App& command, ScopeOptions& options);

/// The options as keys and days.
struct Scope {
  std::optional<ClientId> client;  ///< none with --all
  text::FinancialYear year;
  reporting::Period period;
  std::vector<AccountId> accounts;  ///< empty when none was named
  std::vector<ScripId> scrips;
};

/// Refused when there is no such client, account or scrip, and for days outside the year; throws
/// WrongUsage for words that cannot be understood.
Result<Scope> ScopeOf(const ScopeOptions& options, const lookups::Directory& directory);

/// The clients of a scope, by code.
std::vector<ClientId> ClientsOf(const Scope& scope, const lookups::Directory& directory);

struct OutputOptions {
  std::string format = "text";
  std::string out;

  reporting::OutputFormat Format() const;
};

/// Adds --format and --out.
void AddOutputOptions(CLI::App& command, OutputOptions& options);

/// Where the reports of one command go: to standard output one after the other, a single one to the
/// file of --out, several into the folder of --out, a file each.
///
///     ReportOutput output(context, options.output, options.scope.all);
///     for (const ClientId client : ClientsOf(scope, directory)) {
///       output.Take(MakeLedger(...), directory.Client(client).code);
///     }
class ReportOutput {
 public:
  /// Throws WrongUsage when a format that is no text is to go to standard output.
  ReportOutput(Context& context, const OutputOptions& options, bool several);

  /// `name` is the file's name in a folder.
  void Take(const reporting::ReportDocument& document, const std::string& name);

  /// The same for a report that is text already, such as CSV for machines.
  void TakeText(const std::string& text, const std::string& name);

  /// True when each report goes to a file of its own.
  bool ToFiles() const { return !options_.out.empty(); }
  bool IsFirst() const { return taken_ == 0; }

 private:
  std::string PathOf(const std::string& name);

  Context& context_;
  const OutputOptions& options_;
  bool several_;
  int taken_ = 0;
  std::set<QString> names_;  ///< of the files written, in small letters
};

}  // namespace quorvane::cli
