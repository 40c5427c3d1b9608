#include "core/database/DatabaseSettings.h"

#include "core/platform/Processes.h"

#include <QDir>
#include <QStringList>

#include <fmt/format.h>

#include <stdexcept>

namespace quorvane::database {
namespace {

using Read = std::function<QString(const QString& key)>;

constexpr int kLargestPort = 65535;

[[noreturn]] void Refuse(const QString& key, const QString& text, const char* wanted) {
  throw std::runtime_error(fmt::format("[Database] {} in the settings file must be {}, not \"{}\"",
                                       key.toStdString(), wanted, text.toStdString()));
}

int ReadPort(const Read& read) {
  const QString key = QStringLiteral("Port");
  const QString text = read(key);
  if (text.isEmpty()) {
    return 0;
  }
  bool is_number = false;
  const int port = text.toInt(&is_number);
  if (!is_number || port < 1 || port > kLargestPort) {
    Refuse(key, text, "a number from 1 to 65535");
  }
  return port;
}

void CheckAddresses(const ConnectionSettings& settings) {
  for (const ServerAddress& address : settings.Addresses()) {
    if (address.port < 0 || address.port > kLargestPort) {
      Refuse(QStringLiteral("Server"), settings.server,
             "names of servers, each with :port or without, parted by commas");
    }
  }
}

/// A misspelt "yes" must not leave a server unverified.
bool ReadTlsVerify(const Read& read) {
  const QString key = QStringLiteral("TlsVerify");
  const QString text = read(key).toLower();
  const QStringList yes{QStringLiteral("1"), QStringLiteral("yes"), QStringLiteral("true"),
                        QStringLiteral("on")};
  const QStringList no{QString(), QStringLiteral("0"), QStringLiteral("no"),
                       QStringLiteral("false"), QStringLiteral("off")};
  if (!yes.contains(text) && !no.contains(text)) {
    Refuse(key, text, "yes or no");
  }
  return yes.contains(text);
}

}  // namespace

bool MayLoadDriver(const QString& driver) {
  const bool is_path = driver.contains(QLatin1Char('/')) || driver.contains(QLatin1Char('\\'));
  return !is_path || (QDir::isAbsolutePath(driver) && platform::IsOfSuperuser(driver));
}

std::optional<ConnectionSettings> ReadDatabaseSettings(const Read& read) {
  ConnectionSettings settings;
  settings.server = read(QStringLiteral("Server"));
  settings.socket = read(QStringLiteral("Socket"));
  settings.database = read(QStringLiteral("Database"));
  if (settings.server.isEmpty() && settings.socket.isEmpty() && settings.database.isEmpty()) {
    return std::nullopt;
  }
  if (const QString driver = read(QStringLiteral("Driver")); !driver.isEmpty()) {
    if (!MayLoadDriver(driver)) {
      Refuse(QStringLiteral("Driver"), driver,
             "the name of an installed driver or a file of the machine's administrator");
    }
    settings.driver = driver;
  }
  settings.port = ReadPort(read);
  CheckAddresses(settings);
  settings.user = read(QStringLiteral("User"));
  settings.password = read(QStringLiteral("Password"));
  settings.tls_ca = read(QStringLiteral("TlsCa"));
  settings.tls_certificate = read(QStringLiteral("TlsCertificate"));
  settings.tls_key = read(QStringLiteral("TlsKey"));
  settings.tls_verify = ReadTlsVerify(read);
  return settings;
}

}  // namespace quorvane::database
