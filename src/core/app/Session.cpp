#include "core/app/Session.h"

#include "core/app/Ini.h"
#include "core/database/DatabaseSettings.h"
#include "core/database/Schema.h"
#include "core/platform/Processes.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <QDir>

#include <stdexcept>
#include <utility>

namespace quorvane::app {
namespace {

const QString kDatabaseName = QStringLiteral("quorvane");

database::ConnectionSettings DatabaseOf(Session& session, const StartUpOptions& options) {
  const IniFile config(session.folders.config_file);
  const auto external = database::ReadDatabaseSettings(
      [&](const QString& key) { return config.Read(QStringLiteral("Database"), key); });
  if (external) {
    return *external;
  }
  session.server =
      std::make_unique<database::PrivateServer>(session.folders.database, options.on_first_start);
  return session.server->SettingsOf(kDatabaseName);
}

void RefuseBecause(const QString& reason) {
  if (!reason.isEmpty()) {
    throw std::runtime_error(reason.toStdString());
  }
}

constexpr double kDesignedWidth = 800;
constexpr double kDesignedHeight = 600;

double ReadNumber(const IniFile& ini, const QString& key) {
  return text::Val(ini.Read(QStringLiteral("ScrReso"), key, QStringLiteral("0")));
}

ScreenFactors FactorsFor(double width, double height) {
  return {.horizontal = static_cast<float>(width / kDesignedWidth),
          .vertical = static_cast<float>(height / kDesignedHeight)};
}

}  // namespace

std::unique_ptr<Session> StartUp(const StartUpOptions& options) {
  auto session = std::make_unique<Session>();
  if (options.single_copy) {
    session->single_copy = SingleCopy::Take(options.application_folder);
    if (!session->single_copy) {
      throw AlreadyRunning();
    }
  }
  platform::MakeMissingFolder(options.application_folder);
  session->folders = Folders::At(options.application_folder);
  if (!options.shipped_data.isEmpty()) {
    InstallShippedFiles(session->folders, options.shipped_data);
  }
  session->connection = std::make_unique<database::Connection>(DatabaseOf(*session, options));
  if (session->server != nullptr) {
    session->connection->SetServerReviver([server = session->server.get()] { server->Revive(); });
  }
  session->read_only = session->server != nullptr && session->server->IsReadOnly();
  if (!session->read_only) {
    RefuseBecause(database::WhyUnsuitable(*session->connection));
    session->skipped = database::PrepareDatabase(*session->connection);
    RefuseBecause(database::WhyIncomplete(session->skipped));
  }
  if (options.screen) {
    session->screen_factors = SetScreenFactors(IniFile(session->folders.screen_ini),
                                               options.screen->width, options.screen->height);
  }
  return session;
}

ClientYear CurrentOf(const app::Session& session) {
  if (!session.current) {
    throw std::runtime_error(Tr("Transactions", "Select Client!").toStdString());
  }
  return *session.current;
}

QString ClientTitle(const QString& title, const app::Session& session) {
  return QStringLiteral("%1 - %2 - %3")
      .arg(title, session.current_client_name, CurrentOf(session).year.Text());
}

ScreenFactors SetScreenFactors(const IniFile& screen_ini, int screen_width, int screen_height) {
  const double option = ReadNumber(screen_ini, QStringLiteral("Opt"));
  if (option == 0) {
    return FactorsFor(screen_width, screen_height);
  }
  if (option != 1) {
    return {};
  }
  const double width = ReadNumber(screen_ini, QStringLiteral("X"));
  const double height = ReadNumber(screen_ini, QStringLiteral("Y"));
  return FactorsFor(width > 0 ? width : screen_width, height > 0 ? height : screen_height);
}

SingleCopy::SingleCopy(platform::FileLock lock) : lock_(std::move(lock)) {}

std::optional<SingleCopy> SingleCopy::Take(const QString& application_folder) {
  platform::MakeMissingFolder(application_folder);
  platform::FileLock lock(QDir(application_folder).filePath(QStringLiteral(".quorvane.lock")));
  if (!lock.TryExclusive()) {
    return std::nullopt;
  }
  return SingleCopy(std::move(lock));
}

}  // namespace quorvane::app
