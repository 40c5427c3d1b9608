#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "core/app/Session.h"
#include "core/lookups/Directory.h"
#include "core/records/Faults.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace quorvane::cli {

/// Exit statuses of quorvanectl.
enum ExitStatus { kDone = 0, kRefused = 1, kWrongUsage = 2, kFailure = 3 };

/// Words that cannot be understood: status 2.
class WrongUsage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What every command is given.
struct Context {
  std::string data_folder;  ///< empty: the default application folder
  bool quiet = false;
  int status = kDone;    ///< set by a command that ends without an exception
  MaybeRefusal refusal;  ///< of the command that was given

  /// Opens the database on first use.
  app::Session& Session();
  database::Connection& Connection() { return *Session().connection; }
  std::unique_ptr<quorvane::Progress> MakeProgress() const;

  /// A line of information on standard error; nothing with --quiet.
  void Inform(const std::string& line) const;

  /// A session of another application folder for the rest of the command.
  void UseFolder(const std::string& folder);

 private:
  std::unique_ptr<app::Session> session_;
};

using Registrar = void (*)(CLI::App& app, Context& context);

void AddPortfolioCommands(CLI::App& app, Context& context);
void AddHoldingsCommands(CLI::App& app, Context& context);
void AddLayerCommands(CLI::App& app, Context& context);
void AddActionCommands(CLI::App& app, Context& context);
void AddTradeCommands(CLI::App& app, Context& context);
void AddPaperCommands(CLI::App& app, Context& context);
void AddReportCommands(CLI::App& app, Context& context);
void AddLedgerCommands(CLI::App& app, Context& context);
void AddRatesCommands(CLI::App& app, Context& context);
void AddFairValueCommands(CLI::App& app, Context& context);
void AddDatabaseCommands(CLI::App& app, Context& context);
void AddLogCommands(CLI::App& app, Context& context);
void AddBackupCommands(CLI::App& app, Context& context);
void AddDemoCommand(CLI::App& app, Context& context);

/// What a command does when it is given. A refusal is printed on standard error, with status 1;
/// nothing was changed then.
void SetWork(CLI::App& command, Context& context, std::function<MaybeRefusal()> work);

/// A refusal with a text of the command line.
Refusal RefusalOf(const std::string& text);

/// The text as a year or a date; throws WrongUsage for any other text.
text::FinancialYear YearOf(const std::string& text);
text::Date DateOf(const std::string& option, const std::string& text);

/// The client or account of that name.
Result<ClientId> ClientOf(const lookups::Directory& directory, const std::string& code);
Result<AccountId> AccountOf(const lookups::Directory& directory, ClientId client,
                            const std::string& number);

/// Tells of records that a report could not count as they are written.
void InformOf(Context& context, const records::Faults& faults);

/// Writes to standard output; Failure when it is closed or full.
void Print(const std::string& text);

/// Writes a file whole or not at all, for this user alone.
void WriteFile(const std::string& path, const std::string& content);

}  // namespace quorvane::cli
