#include "cli/Command.h"
#include "portfolio/Export.h"
#include "portfolio/Import.h"

#include <fmt/format.h>

namespace quorvane::cli {
namespace {

struct ImportOptions {
  std::string folder;
  bool dry_run = false;
};

MaybeRefusal Import(Context& context, const ImportOptions& options) {
  const auto progress = context.MakeProgress();
  const portfolio::ImportResult result = portfolio::ImportPortfolio(
      context.Connection(), QString::fromStdString(options.folder), options.dry_run, *progress);
  if (!result.errors.empty()) {
    std::string text = "nothing was taken in:";
    for (const portfolio::ImportError& error : result.errors) {
      text += "\n  " + error.Text();
    }
    return RefusalOf(text);
  }
  for (const std::string& note : result.notes) {
    context.Inform(note);
  }
  for (const portfolio::ImportCount& count : result.counts) {
    context.Inform(fmt::format("{:>9} {}", count.added, count.what));
  }
  context.Inform(options.dry_run ? "Checked; nothing was written." : "Taken in.");
  return std::nullopt;
}

struct ExportOptions {
  std::string folder;
  std::string client;
};

MaybeRefusal Export(Context& context, const ExportOptions& options) {
  std::optional<ClientId> client;
  if (!options.client.empty()) {
    const Result<ClientId> found =
        ClientOf(lookups::Directory(context.Connection()), options.client);
    if (!found) {
      return found.Why();
    }
    client = *found;
  }
  const auto progress = context.MakeProgress();
  portfolio::ExportPortfolio(context.Connection(), QString::fromStdString(options.folder), client,
                             *progress);
  return std::nullopt;
}

}  // namespace

void AddPortfolioCommands(CLI::App& app, Context& context) {
  auto import_options = std::make_shared<ImportOptions>();
  CLI::App* import_command =
      app.add_subcommand("import", "Take a portfolio folder in, all or nothing");
  import_command->add_option("folder", import_options->folder, "Folder of CSV files")->required();
  import_command->add_flag("--dry-run", import_options->dry_run, "Check only");
  SetWork(*import_command, context,
          [&context, import_options] { return Import(context, *import_options); });

  auto export_options = std::make_shared<ExportOptions>();
  CLI::App* export_command = app.add_subcommand("export", "Write the portfolio as a folder");
  export_command->add_option("folder", export_options->folder, "Folder to write to")->required();
  export_command->add_option("--client", export_options->client,
                             "Only this client and those that transfers join to it");
  SetWork(*export_command, context,
          [&context, export_options] { return Export(context, *export_options); });
}

}  // namespace quorvane::cli
