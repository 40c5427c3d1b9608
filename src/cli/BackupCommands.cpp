#include "admin/backup/Restore.h"
#include "cli/Command.h"
#include "cli/TerminalProgress.h"
#include "core/app/Session.h"

#include <QDateTime>
#include <QDir>

#include <memory>
#include <string>

namespace quorvane::cli {
namespace {

struct RestoreOptions {
  std::string folder;
  bool yes = false;
};

QString Absolute(const std::string& folder) {
  return QDir(QString::fromStdString(folder)).absolutePath();
}

MaybeRefusal BackUp(Context& context, const std::string& folder) {
  app::Session& session = context.Session();
  const auto progress = context.MakeProgress();
  const Result<QString> made =
      backup::MakeBackup({*session.connection, session.folders}, Absolute(folder),
                         backup::Kind::kByHand, QDateTime::currentDateTime(), *progress);
  if (made) {
    Print(made->toStdString() + "\n");
  }
  return made.Refused();
}

/// Asked on the terminal; a script says --yes.
MaybeRefusal Confirm() {
  const auto answer = AskOnTerminal(
      "Everything in the application folder is replaced by the backup. Go on? (yes/no)");
  if (!answer) {
    return RefusalOf("a restore replaces everything; say --yes to go on without being asked");
  }
  return *answer == "yes" ? std::nullopt : MaybeRefusal(RefusalOf("nothing was changed"));
}

MaybeRefusal Restore(Context& context, const RestoreOptions& options) {
  app::Session& session = context.Session();
  const auto alone = app::SingleCopy::Take(session.folders.application);
  if (!alone) {
    return RefusalOf("the program is open on this application folder; close it first");
  }
  if (MaybeRefusal refusal = options.yes ? std::nullopt : Confirm()) {
    return refusal;
  }
  const auto progress = context.MakeProgress();
  const Result<QString> aside =
      backup::RestoreBackup({*session.connection, session.folders}, Absolute(options.folder),
                            QDateTime::currentDateTime(), *progress);
  if (aside) {
    context.Inform("Restored. What was replaced lies in " + aside->toStdString());
  }
  return aside.Refused();
}

}  // namespace

void AddBackupCommands(CLI::App& app, Context& context) {
  auto folder = std::make_shared<std::string>();
  CLI::App* backup = app.add_subcommand("backup", "Write a verified backup below a folder");
  backup->add_option("folder", *folder, "Folder of backups")->required();
  SetWork(*backup, context, [&context, folder] { return BackUp(context, *folder); });

  auto options = std::make_shared<RestoreOptions>();
  CLI::App* restore =
      app.add_subcommand("restore", "Put a backup in the place of everything, all or nothing");
  restore->add_option("folder", options->folder, "Folder of the backup")->required();
  restore->add_flag("--yes", options->yes, "Do not ask");
  SetWork(*restore, context, [&context, options] { return Restore(context, *options); });
}

}  // namespace quorvane::cli
