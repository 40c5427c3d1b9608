#include "bench/Office.h"

#include "core/database/Schema.h"

#include <fmt/format.h>

#include <stdexcept>

namespace quorvane::bench {

database::ConnectionSettings NewDatabase(const Office& office, const QString& name) {
  database::ConnectionSettings settings = office.server.SettingsOf(name);
  database::Connection connection(settings);
  for (const database::SkippedStatement& skipped : database::PrepareDatabase(connection)) {
    throw std::runtime_error(
        fmt::format("the set-up skipped {}: {}", skipped.statement, skipped.reason));
  }
  return settings;
}

}  // namespace quorvane::bench
