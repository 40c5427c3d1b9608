#include "cli/Command.h"
#include "core/text/Csv.h"
#include "masters/fair_values/FairValueBook.h"

#include <fmt/format.h>

namespace quorvane::cli {
namespace {

using fair_values::FairValueBook;
using fair_values::FileValues;
using fair_values::Taken;

struct FairValueOptions {
  std::vector<std::string> files;
  std::string date;
  bool dry_run = false;
  bool missing = false;
  std::string client;
};

MaybeRefusal PrintMissing(Context& context, const FairValueOptions& options) {
  std::optional<ClientId> client;
  if (!options.client.empty()) {
    const Result<ClientId> found =
        ClientOf(lookups::Directory(context.Connection()), options.client);
    if (!found) {
      return found.Why();
    }
    client = *found;
  }
  std::string out = "scrip_code,symbol,name\n";
  for (const rates::ListedScrip& scrip : FairValueBook(context.Connection()).Missing(client)) {
    text::AppendCsvField(out, scrip.code);
    out += ',';
    text::AppendCsvField(out, scrip.symbol);
    out += ',';
    text::AppendCsvField(out, scrip.name);
    out += '\n';
  }
  Print(out);
  return std::nullopt;
}

/// The highest prices of all files together.
Result<FileValues> ReadFiles(Context& context, const FairValueOptions& options) {
  const std::vector<rates::ListedScrip> scrips = rates::ListScrips(context.Connection());
  FileValues all;
  for (const std::string& path : options.files) {
    Result<rates::PriceFile> file = fair_values::ReadDayFile(QString::fromStdString(path));
    if (!file) {
      return RefusalOf(path + ": " + file.Why().text.toStdString());
    }
    if (!file->date && options.date.empty()) {
      return RefusalOf(
          fmt::format("{}: neither the file nor its name tells the day of its prices; if they are "
                      "of {}, give it with --date",
                      path, text::FormatDmy(tax::kFairValueDay).toStdString()));
    }
    const FileValues values = fair_values::MatchHighest(std::move(*file), scrips);
    fair_values::TakeHigher(all.highest, values.highest);
    all.unmatched += values.unmatched;
  }
  return all;
}

MaybeRefusal CheckDay(const FairValueOptions& options) {
  if (!options.date.empty() && DateOf("--date", options.date) != tax::kFairValueDay) {
    return RefusalOf(fmt::format("fair values are the highest prices of {}, not of {}",
                                 text::FormatDmy(tax::kFairValueDay).toStdString(), options.date));
  }
  return std::nullopt;
}

MaybeRefusal FairValues(Context& context, const FairValueOptions& options) {
  if (options.missing == !options.files.empty() || (!options.missing && !options.client.empty()) ||
      (options.missing && (options.dry_run || !options.date.empty()))) {
    throw WrongUsage(
        "expected FILE... [--date 31/01/2018] [--dry-run], or --missing [--client CODE]");
  }
  if (options.missing) {
    return PrintMissing(context, options);
  }
  if (MaybeRefusal refusal = CheckDay(options)) {
    return refusal;
  }
  const Result<FileValues> values = ReadFiles(context, options);
  if (!values) {
    return values.Why();
  }
  FairValueBook book(context.Connection());
  const Result<Taken> taken = options.dry_run ? Result<Taken>(book.WouldRaise(values->highest))
                                              : book.Raise(values->highest);
  if (!taken) {
    return taken.Why();
  }
  context.Inform(fmt::format(
      "{}{} fair values are new, {} are higher than before, {} stay; {} rows belong to no scrip.",
      options.dry_run ? "Nothing was written. " : "", taken->added, taken->raised, taken->kept,
      values->unmatched));
  return std::nullopt;
}

}  // namespace

void AddFairValueCommands(CLI::App& app, Context& context) {
  auto options = std::make_shared<FairValueOptions>();
  CLI::App* command = app.add_subcommand(
      "fair-values", "Highest prices of 31-Jan-2018 from the exchanges' price files");
  command->add_option("file", options->files,
                      "Daily price files of that day: .csv, .xls, .xlsx, .ods or .zip");
  command->add_option("--date", options->date,
                      "31/01/2018, for files that do not tell their day themselves");
  command->add_flag("--dry-run", options->dry_run, "Read and count, write nothing");
  command->add_flag("--missing", options->missing,
                    "List the scrips acquired up to that day that have no value");
  command->add_option("--client", options->client, "Of this client only, with --missing");
  SetWork(*command, context, [&context, options] { return FairValues(context, *options); });
}

}  // namespace quorvane::cli
