#include "cli/Command.h"

#include "admin/backup/RestoreFiles.h"
#include "cli/TerminalProgress.h"
#include "core/platform/PrivateFile.h"
#include "core/platform/Processes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace quorvane::cli {

app::Session& Context::Session() {
  if (session_ == nullptr) {
    app::StartUpOptions options;
    options.application_folder =
        data_folder.empty() ? app::DefaultApplicationFolder(QCoreApplication::applicationDirPath())
                            : QDir(QString::fromStdString(data_folder)).absolutePath();
    options.shipped_data =
        app::ShippedFolder(QCoreApplication::applicationDirPath(), QStringLiteral("shipped"));
    options.on_first_start = [this] { Inform("Making the database folder ..."); };
    session_ = app::StartUp(options);
    if (platform::EndRequested()) {
      throw Cancellation();
    }
    if (session_->read_only) {
      std::fprintf(stderr,
                   "quorvanectl: the disk of %s is full; records can be read and copied to "
                   "another disk, not changed\n",
                   options.application_folder.toUtf8().constData());
      return *session_;
    }
    backup::SettleInterruptedRestore(*session_->connection, session_->folders);
  }
  return *session_;
}

void Context::UseFolder(const std::string& folder) {
  session_.reset();
  data_folder = folder;
}

std::unique_ptr<quorvane::Progress> Context::MakeProgress() const {
  return MakeTerminalProgress(quiet);
}

void Context::Inform(const std::string& line) const {
  if (!quiet) {
    std::fprintf(stderr, "%s\n", line.c_str());
  }
}

text::FinancialYear YearOf(const std::string& text) {
  const auto year = text::FinancialYear::Parse(std::string_view(text));
  if (!year) {
    throw WrongUsage("expected a financial year such as 2011-12, found \"" + text + "\"");
  }
  return *year;
}

text::Date DateOf(const std::string& option, const std::string& text) {
  const auto date = text::ParseDmy(std::string_view(text));
  if (!date) {
    throw WrongUsage(option + ": expected a date dd/mm/yyyy, found \"" + text + "\"");
  }
  return *date;
}

void SetWork(CLI::App& command, Context& context, std::function<MaybeRefusal()> work) {
  command.callback([&context, work = std::move(work)] { context.refusal = work(); });
}

Refusal RefusalOf(const std::string& text) {
  return {QString::fromStdString(text)};
}

Result<ClientId> ClientOf(const lookups::Directory& directory, const std::string& code) {
  const lookups::ClientEntry* client = directory.FindClient(code);
  if (client == nullptr) {
    return RefusalOf("there is no client \"" + code + "\"");
  }
  return client->id;
}

Result<AccountId> AccountOf(const lookups::Directory& directory, ClientId client,
                            const std::string& number) {
  const lookups::AccountEntry* account = directory.FindAccount(client, number);
  if (account == nullptr) {
    return RefusalOf("the client has no demat account \"" + number + "\"");
  }
  return account->id;
}

void InformOf(Context& context, const records::Faults& faults) {
  for (const QString& text : records::FaultTexts(context.Connection(), faults)) {
    context.Inform(text.toStdString());
  }
}

void Print(const std::string& text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0) {
    throw std::runtime_error("standard output cannot be written");
  }
}

void WriteFile(const std::string& path, const std::string& content) {
  platform::WritePrivate(QString::fromStdString(path), QByteArrayView(content));
}

}  // namespace quorvane::cli
