#pragma once

#include "core/Result.h"
#include "core/database/Connection.h"
#include "support/Save.h"

#include <QStringList>

#include <fmt/format.h>

namespace quorvane::test {

inline const QString kAccepted = QStringLiteral("accepted");

inline QString TextOf(const MaybeRefusal& refusal) {
  return refusal ? refusal->text : kAccepted;
}

inline Field FieldOf(const MaybeRefusal& refusal) {
  return refusal ? refusal->field : Field::kNone;
}

/// The rows of a query as "a|b|c", in its order.
inline QStringList Rows(database::Connection& connection, const std::string& sql,
                        const QString& null = {}) {
  QStringList rows;
  for (const auto& row : connection.Open(sql)) {
    QStringList cells;
    for (std::size_t i = 0; i < row.ColumnCount(); ++i) {
      cells += row.IsNull(i) ? null : row.Text(i);
    }
    rows += cells.join(QLatin1Char('|'));
  }
  return rows;
}

/// Every row of the given tables, to see that nothing changed.
inline QStringList Contents(database::Connection& connection,
                            std::initializer_list<const char*> tables) {
  QStringList rows;
  for (const char* table : tables) {
    QStringList own =
        Rows(connection, fmt::format("Select '{0}',T.* From {0} T", table), QStringLiteral("NULL"));
    own.sort();
    rows += own;
  }
  return rows;
}

inline void Empty(database::Connection& connection, std::initializer_list<const char*> tables) {
  for (const char* table : tables) {
    connection.Execute(fmt::format("Delete From {}", table));
    connection.Execute("Update RecordKey Set LastKey=0 Where TableName=?", table);
  }
}

}  // namespace quorvane::test
