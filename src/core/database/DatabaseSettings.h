#pragma once

#include "core/database/Connection.h"

#include <QString>

#include <functional>
#include <optional>

namespace quorvane::database {

/// The database that the section [Database] of the settings file names, by the keys Driver, Server,
/// Port, Socket, Database, User, Password, TlsCa, TlsCertificate, TlsKey and TlsVerify. `read`
/// gives a key's text, empty when it is missing. Nothing when Server, Socket and Database are all
/// missing: then the program keeps its own server. Server may name several, separated by commas.
/// Throws std::runtime_error, fit to be shown, when a port is no port, TlsVerify neither yes nor
/// no, or Driver a file that may not be loaded.
std::optional<ConnectionSettings> ReadDatabaseSettings(
    const std::function<QString(const QString& key)>& read);

/// A driver is code that runs in this program. It is named as it is installed; a path must be that
/// of a file of the machine's administrator.
bool MayLoadDriver(const QString& driver);

}  // namespace quorvane::database
