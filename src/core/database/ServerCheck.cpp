#include "core/database/Schema.h"
#include "core/text/Tr.h"

#include <QStringList>

#include <algorithm>

namespace quorvane::database {
namespace {

bool TellsNamesApartByCase(Connection& connection) {
  auto rows = connection.Open("Select @@lower_case_table_names");
  return rows.Next() && rows.Int(0) == 0;
}

/// Rights that come by a role are not listed; the statements themselves tell then.
bool HasRole(Connection& connection) {
  auto rows = connection.Open("Select Coalesce(Current_Role(),'NONE')<>'NONE'");
  return rows.Next() && rows.Int(0) != 0;
}

QStringList MissingRights(Connection& connection) {
  QStringList missing{QStringLiteral("SELECT"), QStringLiteral("INSERT"), QStringLiteral("UPDATE"),
                      QStringLiteral("DELETE"), QStringLiteral("CREATE"), QStringLiteral("ALTER"),
                      QStringLiteral("INDEX"),  QStringLiteral("DROP")};
  if (HasRole(connection)) {
    return {};
  }
  for (const auto& row : connection.Open(
           "Select PRIVILEGE_TYPE From information_schema.USER_PRIVILEGES Union "
           "Select PRIVILEGE_TYPE From information_schema.SCHEMA_PRIVILEGES Where Database() Like "
           "TABLE_SCHEMA")) {
    missing.removeAll(row.Text(0));
  }
  return missing;
}

}  // namespace

QString WhyUnsuitable(Connection& connection) {
  if (TellsNamesApartByCase(connection)) {
    return Tr(
        "Database",
        "The server tells table names apart by upper and lower case. Set lower_case_table_names=1 "
        "in its settings file (section [mysqld]), start it again and make the database after "
        "that.");
  }
  const QStringList missing = MissingRights(connection);
  if (!missing.isEmpty()) {
    return Tr("Database",
              "The server does not give the user %1 these rights on the database %2: %3.")
        .arg(connection.Settings().user, connection.Settings().database,
             missing.join(QStringLiteral(", ")));
  }
  return {};
}

QString WhyIncomplete(std::span<const SkippedStatement> skipped) {
  const auto needed = std::ranges::find_if(skipped, &SkippedStatement::is_needed);
  if (needed == skipped.end()) {
    return {};
  }
  return Tr("Database", "The server refused a statement that the tables need: %1")
      .arg(QString::fromStdString(needed->reason));
}

}  // namespace quorvane::database
