#pragma once

#include <QString>

#include <string_view>

namespace quorvane::changes {

/// "Bill", "Client": the kind of record that a table holds; the table's own name for one that this
/// release does not know.
QString RecordName(std::string_view table);

/// "Quantity": what a column of such a table holds; likewise the column's own name.
QString ColumnText(std::string_view column);

}  // namespace quorvane::changes
