#include "core/app/Session.h"

#include "core/app/Ini.h"
#include "core/database/DatabaseSettings.h"
#include "core/database/ServerCheck.h"
#include "core/platform/Processes.h"

#include <stdexcept>

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

}  // namespace quorvane::app
