#pragma once

#include "admin/backup/Manifest.h"
#include "core/Progress.h"
#include "core/database/Transaction.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::backup {

/// The program's tables as this database has them, with the columns that a query sees. Rows are not
/// counted.
std::vector<TableEntry> TablesOf(database::Connection& connection);

/// Sends a table's rows as text: a line a row, fields parted by tabs, "\N" for NULL, a backslash
/// before tab, line end, NUL and backslash; a double as the shortest text that reads back as the
/// same 64 bits. Rows come in the order of their making. Returns their number. `took_rows` is told
/// how many rows have been sent since it was last told; throws DatabaseError and what `took_rows`
/// throws.
std::int64_t SendRows(database::Connection& connection, const TableEntry& table,
                      const std::function<void(std::string_view)>& send,
                      const std::function<void(std::int64_t)>& took_rows);

/// Inserts the rows of such a text. Refused when it is none or has another number of rows.
MaybeRefusal InsertRows(database::Transaction& transaction, const TableEntry& table,
                        const QString& file, const std::function<void(std::int64_t)>& took_rows);

}  // namespace quorvane::backup
