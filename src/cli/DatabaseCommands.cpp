#include "admin/repair/TableCheck.h"
#include "cli/Command.h"
#include "core/changes/Chain.h"
#include "portfolio/reconcile/OpeningMarks.h"

#include <fmt/format.h>

namespace quorvane::cli {
namespace {

std::string LotText(const ledger::LotChange& change, const lookups::Directory& directory) {
  return fmt::format("lot {} ({}, {}, {}, {}): the ledger holds {}, {}\n", change.lot.id.value,
                     directory.Client(change.lot.client).code, change.lot.year.Utf8(),
                     directory.Account(change.lot.account).number,
                     directory.Scrip(change.lot.scrip).code, change.lot.quantity.Number(),
                     change.duplicate
                         ? "but the lot stands twice"
                         : fmt::format("the documents say {}", change.quantity.Number()));
}

std::string AcrossTables(const repair::TableCheck& check, const lookups::Directory& directory) {
  std::string report;
  for (const ledger::LotChange& change : check.wrong_lots) {
    report += LotText(change, directory);
  }
  for (const repair::Dangling& dangling : check.dangling) {
    report += fmt::format("note: {} rows of {} name a record of {} ({}) that is not there\n",
                          dangling.rows, dangling.table, dangling.names, dangling.column);
  }
  for (const repair::LostLines& lost : check.lost_lines) {
    report += fmt::format("note: {} lines of bill {} ({}, {}), which is gone\n", lost.lines,
                          lost.bill.value, directory.Client(lost.client).code, lost.year);
  }
  return report;
}

std::string Verdict(const repair::TableCheck& check) {
  if (check.AllIsWell()) {
    return "Keys are unique, and every lot agrees with its documents.\n";
  }
  const bool only_log = check.faults.empty() && check.double_keys.empty() &&
                        check.wrong_lots.empty() && check.record_faults.isEmpty();
  if (only_log) {
    return "Keys are unique, and every lot agrees with its documents. The log of changes was "
           "tampered with.\n";
  }
  return check.faults.empty()
             ? "Something is wrong; \"quorvanectl rebuild --all\" mends the lots.\n"
             : "A table is damaged; references and lots were not looked into. Restore a backup.\n";
}

void Check(Context& context) {
  const auto progress = context.MakeProgress();
  const repair::TableCheck check = repair::CheckTables(context.Connection(), *progress);
  const auto& skipped_statements = context.Session().skipped;
  std::string report;
  for (const auto& skipped : skipped_statements) {
    report += fmt::format("skipped: {}\n         {}\n", skipped.statement, skipped.reason);
  }
  for (const repair::TableSize& size : check.sizes) {
    report += fmt::format("{:>9} {}\n", size.rows, size.table);
  }
  for (const repair::TableFault& fault : check.faults) {
    report += fmt::format("{}: the server says: {}\n", fault.table, fault.text);
  }
  for (const repair::DoubleKey& key : check.double_keys) {
    report +=
        fmt::format("{}: {} keys ({}) stand more than once\n", key.table, key.keys, key.columns);
  }
  // Reads the masters, which a damaged table does not allow.
  if (check.faults.empty()) {
    report += AcrossTables(check, lookups::Directory(context.Connection()));
  }
  for (const QString& action : check.outdated_actions) {
    report += fmt::format("note: {}\n", action.toStdString());
  }
  for (const QString& mark :
       check.faults.empty() ? reconcile::OpenMarkTexts(context.Connection()) : QStringList()) {
    report += fmt::format("note: {}\n", mark.toStdString());
  }
  if (check.faults.empty()) {
    report += fmt::format("the log of changes ends at {}\n",
                          changes::EndOf(context.Connection()).toStdString());
  }
  for (const QString& fault : check.log_faults) {
    report += fmt::format("{}\n", fault.toStdString());
  }
  for (const QString& fault : check.record_faults) {
    report += fmt::format("{}\n", fault.toStdString());
  }
  report += Verdict(check);
  Print(report);
  context.status = check.AllIsWell() && skipped_statements.empty() ? kDone : kRefused;
}

/// As one word of the shell.
std::string ShellWord(const QString& text) {
  QString quoted = text;
  return "'" + quoted.replace(QLatin1Char('\''), QLatin1String("'\\''")).toStdString() + "'";
}

void Connect(Context& context) {
  app::Session& session = context.Session();
  const auto& settings = session.connection->Settings();
  std::string command = "mariadb";
  const auto add = [&](const char* option, const QString& value) {
    if (!value.isEmpty()) {
      command += fmt::format(" {}{}", option, ShellWord(value));
    }
  };
  const database::ServerAddress& address = session.connection->Address();
  add("--host=", address.host);
  add("--port=", address.port == 0 ? QString() : QString::number(address.port));
  add("--socket=", settings.socket);
  add("--user=", settings.user);
  if (!settings.password.isEmpty()) {
    command += " --password";
  }
  add("--database=", settings.database);
  Print(command + "\n");
  if (session.server != nullptr) {
    session.server->LeaveRunning();
    context.Inform("The server stays up for you; the next command of this program stops it.");
  }
}

}  // namespace

void AddDatabaseCommands(CLI::App& app, Context& context) {
  app.add_subcommand("check", "Check tables, keys and holdings")->callback([&context] {
    Check(context);
  });
  app.add_subcommand("connect", "How to reach the database with its own client")
      ->callback([&context] { Connect(context); });
}

}  // namespace quorvane::cli
