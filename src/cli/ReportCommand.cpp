#include "cli/ReportCommand.h"

#include "core/platform/PrivateFile.h"
#include "reporting/output/WriteReport.h"

namespace quorvane::cli {
namespace {

using reporting::OutputFormat;

bool IsText(OutputFormat format) {
  return format == OutputFormat::kText || format == OutputFormat::kCsv;
}

std::vector<std::string> FormatNames() {
  std::vector<std::string> names;
  for (const reporting::OutputFormatEntry& entry : reporting::OutputFormats()) {
    names.emplace_back(entry.name);
  }
  return names;
}

Result<std::vector<AccountId>> AccountsOf(const ScopeOptions& options,
                                          std::optional<ClientId> client,
                                          const lookups::Directory& directory) {
  std::vector<AccountId> accounts;
  for (const std::string& number : options.accounts) {
    if (client) {
      const Result<AccountId> account = AccountOf(directory, *client, number);
      if (!account) {
        return account.Why();
      }
      accounts.push_back(*account);
      continue;
    }
    const auto found = directory.FindAccounts(number);
    if (found.empty()) {
      return RefusalOf("there is no demat account \"" + number + "\"");
    }
    for (const lookups::AccountEntry* account : found) {
      accounts.push_back(account->id);
    }
  }
  return accounts;
}

Result<std::vector<ScripId>> ScripsOf(const ScopeOptions& options,
                                      const lookups::Directory& directory) {
  std::vector<ScripId> scrips;
  for (const std::string& code : options.scrips) {
    const lookups::ScripEntry* scrip = directory.FindScrip(code);
    if (scrip == nullptr) {
      return RefusalOf("there is no scrip \"" + code + "\"");
    }
    scrips.push_back(scrip->id);
  }
  return scrips;
}

Result<reporting::Period> PeriodOf(const ScopeOptions& options, text::FinancialYear year) {
  reporting::Period period = reporting::Period::Of(year);
  if (!options.from.empty()) {
    period.from = DateOf("--from", options.from);
  }
  if (!options.to.empty()) {
    period.to = DateOf("--to", options.to);
  }
  if (const MaybeRefusal outside = reporting::RefuseOutside(period, year)) {
    return *outside;
  }
  if (period.from > period.to) {
    return RefusalOf("From Date Can't be Greater than To Date.");
  }
  return period;
}

void AddReport(CLI::App& group, Context& context, const reports::Report& report) {
  using enum reports::ReportId;
  switch (report.id) {
    case kProfit:
      return AddProfitStatement(group, context, report, profit::StatementMode::kProfit);
    case kCapitalGain:
      return AddProfitStatement(group, context, report, profit::StatementMode::kCapitalGain);
    case kBrokerLedger:
      return AddBrokerLedger(group, context, report);
    case kDemat:
      return AddDematStatement(group, context, report);
    case kTransactions:
      return AddTransactions(group, context, report);
    case kDividends:
      return AddDividends(group, context, report);
    case kScripPage:
      return AddScripPage(group, context, report);
    case kTaxYear:
      return AddTaxCommands(group, context, report);
    case kBrokerAccount:
      return AddBrokerAccount(group, context, report);
    case kReturns:
      return AddReturns(group, context, report);
    case kBooklet:
      return AddBooklet(group, context, report);
    case kPosition:
      return AddMisReport(group, context, report, mis::ReportKind::kPosition);
    case kValuation:
      return AddMisReport(group, context, report, mis::ReportKind::kValuation);
    case kMarket:
      return AddMisReport(group, context, report, mis::ReportKind::kMarket);
    case kProfitLoss:
      return AddMisReport(group, context, report, mis::ReportKind::kProfitLoss);
    case kStock:
      return AddMisReport(group, context, report, mis::ReportKind::kStock);
  }
}

}  // namespace

void AddReportCommands(CLI::App& app, Context& context) {
  app.add_subcommand("statement", "A statement of a client")->require_subcommand(1);
  app.add_subcommand("mis", "Management reports of several clients")->require_subcommand(1);
  for (const reports::Report& report : reports::Reports()) {
    const std::string group = report.group;
    AddReport(group.empty() ? app : *app.get_subcommand(group), context, report);
  }
}

void AddPeriodOptions(CLI::App& command, ScopeOptions& options) {
  auto* client = command.add_option("--client", options.client, "Client code");
  auto* all = command.add_flag("--all", options.all, "Every client");
  client->excludes(all);
  command.add_option("--year", options.year, "Financial year, such as 2011-12")->required();
  command.add_option("--from", options.from, "First day, dd/mm/yyyy");
  command.add_option("--to", options.to, "Last day, dd/mm/yyyy");
}

void AddScopeOptions(CLI::App& command, ScopeOptions& options) {
  AddPeriodOptions(command, options);
  command.add_option("--accounts", options.accounts, "Demat accounts, by number")->delimiter(',');
  command.add_option("--scrips", options.scrips, "Scrips, by code")->delimiter(',');
}

Result<Scope> ScopeOf(const ScopeOptions& options, const lookups::Directory& directory) {
  if (options.client.empty() && !options.all) {
    throw WrongUsage("expected --client CODE or --all");
  }
  Scope scope{{}, YearOf(options.year), {}, {}, {}};
  if (!options.all) {
    const Result<ClientId> client = ClientOf(directory, options.client);
    if (!client) {
      return client.Why();
    }
    scope.client = *client;
  }
  const Result<reporting::Period> period = PeriodOf(options, scope.year);
  if (!period) {
    return period.Why();
  }
  scope.period = *period;
  Result<std::vector<AccountId>> accounts = AccountsOf(options, scope.client, directory);
  if (!accounts) {
    return accounts.Why();
  }
  scope.accounts = std::move(*accounts);
  Result<std::vector<ScripId>> scrips = ScripsOf(options, directory);
  if (!scrips) {
    return scrips.Why();
  }
  scope.scrips = std::move(*scrips);
  return scope;
}

std::vector<ClientId> ClientsOf(const Scope& scope, const lookups::Directory& directory) {
  if (scope.client) {
    return {*scope.client};
  }
  std::vector<ClientId> clients;
  for (const lookups::ClientEntry& client : directory.Clients()) {
    clients.push_back(client.id);
  }
  return clients;
}

reporting::OutputFormat OutputOptions::Format() const {
  return reporting::FormatNamed(format).value_or(OutputFormat::kText);
}

void AddOutputOptions(CLI::App& command, OutputOptions& options) {
  command.add_option("--format", options.format, "Kind of file")
      ->check(CLI::IsMember(FormatNames()));
  command.add_option("--out", options.out, "File; with --all a folder with a file a client");
}

ReportOutput::ReportOutput(Context& context, const OutputOptions& options, bool several)
    : context_(context), options_(options), several_(several) {
  if (options.out.empty() && !IsText(options.Format())) {
    throw WrongUsage("--format " + options.format + " needs --out FILE");
  }
}

// Codes that differ only in letters which no file name may have are told apart by a number.
std::string ReportOutput::PathOf(const std::string& name) {
  if (!several_) {
    return options_.out;
  }
  platform::MakeOutputFolder(QString::fromStdString(options_.out));
  const QString stem = reporting::FileStem({QString::fromStdString(name)});
  QString free = stem;
  for (int number = 2; !names_.insert(free.toCaseFolded()).second; ++number) {
    free = QStringLiteral("%1 (%2)").arg(stem).arg(number);
  }
  return options_.out + "/" + (free + reporting::ExtensionOf(options_.Format())).toStdString();
}

void ReportOutput::Take(const reporting::ReportDocument& document, const std::string& name) {
  const OutputFormat format = options_.Format();
  if (!ToFiles()) {
    TakeText(format == OutputFormat::kCsv ? WriteCsv(document) : WriteText(document), name);
    return;
  }
  const auto progress = several_ ? std::make_unique<Progress>() : context_.MakeProgress();
  WriteReport(document, format, QString::fromStdString(PathOf(name)), *progress);
  ++taken_;
}

void ReportOutput::TakeText(const std::string& text, const std::string& name) {
  if (ToFiles()) {
    WriteFile(PathOf(name), text);
  } else {
    const bool apart = taken_ > 0 && options_.Format() == OutputFormat::kText;
    Print(apart ? "\n" + text : text);
  }
  ++taken_;
}

}  // namespace quorvane::cli
