#include "cli/Command.h"
#include "core/app/AppInfo.h"
#include "core/database/DatabaseError.h"
#include "core/platform/Processes.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

using namespace quorvane::cli;

int Report(const char* what, ExitStatus status) {
  std::fprintf(stderr, "quorvanectl: %s\n", what);
  return status;
}

int Run(CLI::App& app, Context& context, int argc, char** argv) {
  try {
    app.parse(argc, argv);
    return context.refusal ? Report(context.refusal->text.toUtf8().constData(), kRefused)
                           : context.status;
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? kDone : kWrongUsage;
  } catch (const WrongUsage& error) {
    return Report(error.what(), kWrongUsage);
  } catch (const quorvane::Cancellation&) {
    return Report("cancelled; nothing was changed", kRefused);
  } catch (const std::exception& error) {
    return Report(error.what(), kFailure);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  quorvane::platform::NoteEndRequests();
  QCoreApplication::setApplicationName(QStringLiteral("quorvane"));
  Context context;
  CLI::App app("Share portfolios from the command line", "quorvanectl");
  app.require_subcommand(1);
  app.fallthrough();
  app.set_version_flag("--version", quorvane::app::kVersionText);
  app.add_option("--data", context.data_folder, "Application folder with the settings and data");
  app.add_flag("--quiet", context.quiet, "No progress bar and no notices");
  for (const Registrar add :
       {AddPortfolioCommands, AddHoldingsCommands, AddLayerCommands, AddActionCommands,
        AddTradeCommands, AddPaperCommands, AddReportCommands, AddLedgerCommands, AddRatesCommands,
        AddFairValueCommands, AddDatabaseCommands, AddLogCommands, AddBackupCommands,
        AddDemoCommand}) {
    add(app, context);
  }
  return Run(app, context, argc, argv);
}
