#include "cli/Command.h"
#include "cli/ReportCommand.h"
#include "core/lookups/Choices.h"
#include "core/text/Csv.h"
#include "portfolio/notes/NoteBook.h"
#include "portfolio/reconcile/KeptChecks.h"
#include "portfolio/reconcile/OpeningFromStatement.h"
#include "portfolio/reconcile/ReconcileDocument.h"
#include "portfolio/reconcile/StatementFile.h"

#include <QFile>

#include <fmt/format.h>

namespace quorvane::cli {
namespace {

struct ReconcileOptions {
  std::string file;
  std::string client;
  std::string account;
  std::string as_on;
  std::string password_file;
  bool differences = false;
  bool opening = false;
  OutputOptions output;
};

/// The lines of the file of --password-file. A password is never among the words of the command,
/// which other users of the machine can see.
Result<QStringList> PasswordsIn(const std::string& path) {
  constexpr qint64 kLargest = 4096;
  if (path.empty()) {
    return QStringList();
  }
  QFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::ReadOnly)) {
    return RefusalOf(fmt::format("cannot read {}: {}", path, file.errorString().toStdString()));
  }
  QStringList passwords;
  for (const QByteArray& line : file.read(kLargest).split('\n')) {
    const QString password = QString::fromUtf8(line).remove(QLatin1Char('\r'));
    if (!password.isEmpty()) {
      passwords << password;
    }
  }
  return passwords;
}

/// The account of --account; none when it is not given.
Result<AccountId> OptionalAccount(const lookups::Directory& directory, ClientId client,
                                  const std::string& number) {
  return number.empty() ? Result<AccountId>(AccountId{}) : AccountOf(directory, client, number);
}

MaybeRefusal Reconcile(Context& context, const ReconcileOptions& options) {
  const lookups::Directory directory(context.Connection());
  const Result<ClientId> client = ClientOf(directory, options.client);
  if (!client) {
    return client.Why();
  }
  const Result<AccountId> account = OptionalAccount(directory, *client, options.account);
  if (!account) {
    return account.Why();
  }
  const Result<QStringList> passwords = PasswordsIn(options.password_file);
  if (!passwords) {
    return passwords.Why();
  }
  reconcile::ReconcileQuery query{
      .client = *client, .day = {}, .account = *account, .today = text::Today()};
  if (!options.as_on.empty()) {
    query.day = DateOf("--as-on", options.as_on);
  }
  ReportOutput output(context, options.output, false);
  const auto progress = context.MakeProgress();
  const auto statement = reconcile::ReadStatementOf(
      context.Connection(), *client, QString::fromStdString(options.file), *passwords, *progress);
  if (!statement) {
    return statement.Why();
  }
  if (options.opening) {
    const auto lots =
        reconcile::TakeInAsOpening(context.Connection(), *statement, query, *progress);
    if (lots) {
      context.Inform(fmt::format("{} opening lots taken in; enter their cost and day", *lots));
    }
    return lots.Refused();
  }
  const auto result = reconcile::Reconcile(context.Connection(), *statement, query, *progress);
  if (!result) {
    return result.Why();
  }
  if (!context.Session().read_only) {
    reconcile::KeepCheck(context.Connection(), *result, query.today);
  }
  if (options.output.Format() == reporting::OutputFormat::kCsv) {
    output.TakeText(reconcile::ReconcileCsv(*result, directory, options.differences), "reconcile");
    for (const QString& note : result->notes) {
      context.Inform(note.toStdString());
    }
  } else {
    output.Take(reconcile::MakeReconcileDocument(*result, directory, options.differences),
                "reconcile");
  }
  return std::nullopt;
}

void AddReconcile(CLI::App& app, Context& context) {
  auto options = std::make_shared<ReconcileOptions>();
  CLI::App* command = app.add_subcommand(
      "reconcile", "Compare holdings with a depository's or participant's statement");
  command->add_option("file", options->file, "The statement: .pdf, .csv, .xlsx, .xls or .ods")
      ->required();
  command->add_option("--client", options->client, "Client code")->required();
  command->add_option("--account", options->account,
                      "Demat account, for a statement that names none");
  command->add_option("--as-on", options->as_on,
                      "Compare with the end of this day, dd/mm/yyyy; else the statement's");
  command->add_option("--password-file", options->password_file,
                      "File with the password in it; the client's PAN is tried anyhow");
  command->add_flag("--differences", options->differences, "Only what does not agree");
  command->add_flag("--opening", options->opening,
                    "Take the holdings in as opening stock of a client without records");
  AddOutputOptions(*command, options->output);
  SetWork(*command, context, [&context, options] { return Reconcile(context, *options); });
}

struct NoteOptions {
  std::vector<std::string> files;
  std::string client;
  std::string account;
  std::string broker;
  std::string exchange;
  std::string password_file;
  bool dry_run = false;
  bool replace = false;
  bool by_hand = false;
};

Result<BrokerId> OptionalBroker(database::Connection& connection, const std::string& name) {
  if (name.empty()) {
    return BrokerId{};
  }
  for (const lookups::Item& broker :
       lookups::DropDownItems(connection, lookups::DropDown::kBrokers)) {
    if (lookups::Folded(broker.text.toStdString()) == lookups::Folded(name)) {
      return BrokerId{broker.id};
    }
  }
  return RefusalOf(fmt::format("there is no broker {}", name));
}

/// A row a note.
std::string NotesCsv(std::span<const notes::PlannedNote> planned) {
  std::string out = "file,note_no,date,broker,exchange,lines,net,state,remark\n";
  for (const notes::PlannedNote& one : planned) {
    text::AppendCsvField(out, one.path.toStdString());
    out += ',';
    text::AppendCsvField(out, one.note.number);
    out += ',';
    if (one.note.day) {
      text::AppendDmy(out, *one.note.day);
    }
    out += ',';
    text::AppendCsvField(out, one.broker_name.toStdString());
    out += ',';
    text::AppendCsvField(out, one.exchange.toStdString());
    out += fmt::format(",{},", one.note.lines.size());
    if (one.note.net) {
      text::AppendPaise(out, one.note.net->Count());
    }
    out += ',';
    text::AppendCsvField(out, notes::TextOf(one.state).toStdString());
    out += ',';
    text::AppendCsvField(out, one.remark.toStdString());
    out += '\n';
  }
  return out;
}

/// Who and where, of the command's words.
Result<notes::NoteQuery> NoteQueryOf(Context& context, const NoteOptions& options) {
  const lookups::Directory directory(context.Connection());
  const Result<ClientId> client = ClientOf(directory, options.client);
  if (!client) {
    return client.Why();
  }
  const Result<AccountId> account = AccountOf(directory, *client, options.account);
  if (!account) {
    return account.Why();
  }
  const Result<BrokerId> broker = OptionalBroker(context.Connection(), options.broker);
  if (!broker) {
    return broker.Why();
  }
  return notes::NoteQuery{.client = *client,
                          .account = *account,
                          .broker = *broker,
                          .exchange = QString::fromStdString(options.exchange),
                          .today = text::Today()};
}

MaybeRefusal Notes(Context& context, const NoteOptions& options) {
  const Result<notes::NoteQuery> query = NoteQueryOf(context, options);
  if (!query) {
    return query.Why();
  }
  const Result<QStringList> passwords = PasswordsIn(options.password_file);
  if (!passwords) {
    return passwords.Why();
  }
  const auto progress = context.MakeProgress();
  std::vector<notes::ReadFile> read;
  for (const std::string& file : options.files) {
    const QString path = QString::fromStdString(file);
    auto note = notes::ReadNote(context.Connection(), query->client, path, *passwords, *progress);
    if (!note) {
      return RefusalOf(fmt::format("{}: {}", file, note.Why().text.toStdString()));
    }
    read.push_back({path, std::move(*note)});
  }
  const auto planned = notes::PlanNotes(context.Connection(), *query, std::move(read));
  Print(NotesCsv(planned));
  for (const notes::PlannedNote& one : planned) {
    if (one.state == notes::NoteState::kRevises && !options.replace) {
      return RefusalOf(fmt::format("{}: {} Give --replace to put the note in its place.",
                                   one.path.toStdString(), one.remark.toStdString()));
    }
    if (one.state == notes::NoteState::kEntered && !options.by_hand) {
      return RefusalOf(fmt::format("{}: {} Give --by-hand to take the note in all the same.",
                                   one.path.toStdString(), one.remark.toStdString()));
    }
  }
  const auto taken =
      notes::TakeIn(context.Connection(), *query, planned, options.dry_run, *progress);
  if (taken) {
    context.Inform(options.dry_run ? "Checked; nothing was written."
                                   : fmt::format("{} bills recorded", *taken));
  }
  return taken.Refused();
}

void AddNote(CLI::App& app, Context& context) {
  auto options = std::make_shared<NoteOptions>();
  CLI::App* command =
      app.add_subcommand("note", "Record brokers' contract notes as bills, all or none");
  command->add_option("files", options->files, "The notes: PDF, web pages or workbooks")
      ->required();
  command->add_option("--client", options->client, "Client code")->required();
  command->add_option("--account", options->account, "Demat account of the client")->required();
  command->add_option("--broker", options->broker,
                      "Broker, where a note does not have the name as it is entered");
  command->add_option("--exchange", options->exchange,
                      "Exchange of notes that name none; else NSE");
  command->add_option("--password-file", options->password_file,
                      "File with the password in it; the client's PAN is tried anyhow");
  command->add_flag("--by-hand", options->by_hand,
                    "Take in also what was probably entered under another number");
  command->add_flag("--replace", options->replace,
                    "Put revised notes in the place of the bills that are recorded");
  command->add_flag("--dry-run", options->dry_run, "Check only");
  SetWork(*command, context, [&context, options] { return Notes(context, *options); });
}

}  // namespace

void AddPaperCommands(CLI::App& app, Context& context) {
  AddReconcile(app, context);
  AddNote(app, context);
}

}  // namespace quorvane::cli
