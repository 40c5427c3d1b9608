#pragma once

#include "bench/Portfolio.h"
#include "core/database/PrivateServer.h"

#include <QTemporaryDir>

namespace quorvane::bench {

/// A database server with a folder of its own, removed afterwards.
struct Office {
  QTemporaryDir folder;
  database::PrivateServer server{folder.path() + QStringLiteral("/database")};

  QString Path(const char* name) const { return folder.filePath(QLatin1String(name)); }
};

/// A database of an office, with the tables and nothing else.
database::ConnectionSettings NewDatabase(const Office& office, const QString& name);

}  // namespace quorvane::bench
