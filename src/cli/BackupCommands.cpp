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

void BackUp(Context& context, const std::string& folder) {
  app::Session& session = context.Session();
  const auto progress = context.MakeProgress();
  const QString made =
      ValueOf(backup::MakeBackup({*session.connection, session.folders}, Absolute(folder),
                                 backup::Kind::kByHand, QDateTime::currentDateTime(), *progress));
  Print(made.toStdString() + "\n");
}

/// Asked on the terminal; a script says --yes.
void Confirm() {
  const auto answer = AskOnTerminal(
      "Everything in the application folder is replaced by the backup. Go on? (yes/no)");
  if (!answer) {
    throw Refused("a restore replaces everything; say --yes to go on without being asked");
  }
  if (*answer != "yes") {
    throw Refused("nothing was changed");
  }
}

void Restore(Context& context, const RestoreOptions& options) {
  app::Session& session = context.Session();
  const auto alone = app::SingleCopy::Take(session.folders.application);
  if (!alone) {
    throw Refused("the program is open on this application folder; close it first");
  }
  if (!options.yes) {
    Confirm();
  }
  const auto progress = context.MakeProgress();
  const QString aside = ValueOf(backup::RestoreBackup({*session.connection, session.folders},
                                                      Absolute(options.folder),
                                                      QDateTime::currentDateTime(), *progress));
  context.Inform("Restored. What was replaced lies in " + aside.toStdString());
}

}  // namespace

void AddBackupCommands(CLI::App& app, Context& context) {
  auto folder = std::make_shared<std::string>();
  CLI::App* backup = app.add_subcommand("backup", "Write a verified backup below a folder");
  backup->add_option("folder", *folder, "Folder of backups")->required();
  backup->callback([&context, folder] { BackUp(context, *folder); });

  auto options = std::make_shared<RestoreOptions>();
  CLI::App* restore =
      app.add_subcommand("restore", "Put a backup in the place of everything, all or nothing");
  restore->add_option("folder", options->folder, "Folder of the backup")->required();
  restore->add_flag("--yes", options->yes, "Do not ask");
  restore->callback([&context, options] { Restore(context, *options); });
}

}  // namespace quorvane::cli
