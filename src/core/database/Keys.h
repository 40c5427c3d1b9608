#pragma once

#include "core/database/Transaction.h"

#include <initializer_list>
#include <string_view>

namespace quorvane::database {

/// The next free key of a table: one more than its largest, an empty table counting as 0. A
/// second writer who asks waits until the transaction ends, so that it does not take the same key;
/// on an empty table one of the two is given up by the server instead and has to begin again, which
/// InTransaction does.
int NextKey(Transaction& transaction, std::string_view table, std::string_view column = "Id");

/// The next free key over tables that share one sequence.
int NextSharedKey(Transaction& transaction, std::initializer_list<std::string_view> tables);

}  // namespace quorvane::database
