#include "cli/Command.h"
#include "core/changes/Chain.h"
#include "core/changes/Undo.h"
#include "core/changes/Words.h"
#include "core/platform/PrivateFile.h"
#include "core/text/Dates.h"

#include <fmt/format.h>

namespace quorvane::cli {
namespace {

struct LogOptions {
  std::string client;
  std::string from;
  std::string to;
  std::string user;
  std::string kind;
  std::string format = "text";
  std::string remove_before;
  std::string out;
};

struct UndoOptions {
  std::string client;
  bool show = false;
};

/// "2011-06-15".
std::string IsoDay(const std::string& option, const std::string& text) {
  const std::string dmy = text::FormatDmy(DateOf(option, text)).toStdString();
  return dmy.substr(6, 4) + "-" + dmy.substr(3, 2) + "-" + dmy.substr(0, 2);
}

Result<changes::Filter> FilterOf(const LogOptions& options, const lookups::Directory& directory) {
  changes::Filter filter;
  if (!options.client.empty()) {
    const Result<ClientId> client = ClientOf(directory, options.client);
    if (!client) {
      return client.Why();
    }
    filter.client = *client;
  }
  filter.from = options.from.empty() ? "" : IsoDay("--from", options.from);
  filter.to = options.to.empty() ? "" : IsoDay("--to", options.to);
  filter.user = QString::fromStdString(options.user);
  if (!options.kind.empty()) {
    filter.kind = changes::KindOf(options.kind);
  }
  return filter;
}

std::string TextOf(const changes::Entry& entry, const lookups::Directory& directory) {
  const changes::KeyNames names = changes::NamesIn(directory);
  std::string text = fmt::format(
      "{} {} {}@{}: {}, {}", entry.id, changes::TimeOf(entry).toStdString(),
      entry.user.toStdString(), entry.host.toStdString(), changes::NameOf(entry.kind).toStdString(),
      changes::SubjectOf(entry).toStdString());
  if (entry.client) {
    text += fmt::format(" ({} {})", directory.Client(entry.client).code, entry.year);
  }
  if (entry.undoes != 0) {
    text += fmt::format(", takes back {}", entry.undoes);
  }
  text += '\n';
  for (const changes::Difference& one :
       changes::Differences(entry.old_rows, entry.new_rows, names)) {
    text += fmt::format("    {}, {}: {} | {}\n", one.place.toStdString(), one.column.toStdString(),
                        one.before.toStdString(), one.after.toStdString());
  }
  return text;
}

MaybeRefusal RemoveOld(Context& context, const LogOptions& options) {
  if (options.out.empty()) {
    throw WrongUsage("--remove-before: expected --out FILE for the entries that are removed");
  }
  const std::string day = IsoDay("--remove-before", options.remove_before);
  const lookups::Directory directory(context.Connection());
  std::string content = changes::CsvHeadings();
  const Result<std::int64_t> count =
      changes::Export(context.Connection(), day, [&](const changes::Entry& entry) {
        content += changes::CsvOf(entry, directory.Client(entry.client).code);
      });
  if (!count) {
    return count.Why();
  }
  WriteFile(options.out, content);
  const Result<std::int64_t> removed = changes::RemoveUpTo(context.Connection(), *count);
  if (removed) {
    context.Inform(fmt::format("{} entries removed; they are in {}", *removed, options.out));
  }
  return removed.Refused();
}

MaybeRefusal ShowLog(Context& context, const LogOptions& options) {
  if (!options.remove_before.empty()) {
    return RemoveOld(context, options);
  }
  const lookups::Directory directory(context.Connection());
  const Result<changes::Filter> filter = FilterOf(options, directory);
  if (!filter) {
    return filter.Why();
  }
  const bool csv = options.format == "csv";
  if (csv) {
    Print(changes::CsvHeadings());
  }
  changes::ReadEntries(context.Connection(), *filter, true, [&](const changes::Entry& entry) {
    Print(csv ? changes::CsvOf(entry, directory.Client(entry.client).code)
              : TextOf(entry, directory));
  });
  return std::nullopt;
}

MaybeRefusal UndoLast(Context& context, const UndoOptions& options) {
  std::optional<ClientId> client;
  if (!options.client.empty()) {
    const Result<ClientId> found =
        ClientOf(lookups::Directory(context.Connection()), options.client);
    if (!found) {
      return found.Why();
    }
    client = *found;
  }
  const Result<changes::Entry> entry = changes::LastToUndo(context.Connection(), client);
  if (!entry) {
    return entry.Why();
  }
  if (options.show) {
    Print(TextOf(*entry, lookups::Directory(context.Connection())));
    return std::nullopt;
  }
  const auto progress = context.MakeProgress();
  MaybeRefusal refusal = changes::Undo(context.Connection(), *entry, *progress);
  if (!refusal) {
    context.Inform("Taken back: " + TextOf(*entry, lookups::Directory(context.Connection())));
  }
  return refusal;
}

std::vector<std::string> KindWords() {
  std::vector<std::string> words;
  for (const changes::Kind kind : changes::Kinds()) {
    words.emplace_back(changes::WordOf(kind));
  }
  return words;
}

}  // namespace

void AddLogCommands(CLI::App& app, Context& context) {
  auto log = std::make_shared<LogOptions>();
  CLI::App* command = app.add_subcommand("log", "What was changed, by whom and when");
  command->add_option("--client", log->client, "Client code");
  command->add_option("--from", log->from, "First day, dd/mm/yyyy");
  command->add_option("--to", log->to, "Last day, dd/mm/yyyy");
  command->add_option("--user", log->user, "Changes of one user");
  command->add_option("--kind", log->kind, "Changes of one kind")
      ->check(CLI::IsMember(KindWords()));
  command->add_option("--format", log->format, "text or csv")
      ->check(CLI::IsMember({"text", "csv"}));
  command->add_option("--remove-before", log->remove_before,
                      "Write the entries before this day to --out and remove them");
  command->add_option("--out", log->out, "File for the entries that are removed");
  SetWork(*command, context, [&context, log] { return ShowLog(context, *log); });

  auto undo = std::make_shared<UndoOptions>();
  CLI::App* back = app.add_subcommand("undo", "Take your last change back");
  back->add_option("--client", undo->client, "The last change of this client's records");
  back->add_flag("--show", undo->show, "Only tell what it would take back");
  SetWork(*back, context, [&context, undo] { return UndoLast(context, *undo); });
}

}  // namespace quorvane::cli
