#include "cli/Command.h"
#include "cli/ReportCommand.h"
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
  const auto result = reconcile::Reconcile(context.Connection(), *statement, query, *progress);
  if (!result) {
    return result.Why();
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
  AddOutputOptions(*command, options->output);
  SetWork(*command, context, [&context, options] { return Reconcile(context, *options); });
}

}  // namespace

void AddPaperCommands(CLI::App& app, Context& context) {
  AddReconcile(app, context);
}

}  // namespace quorvane::cli
