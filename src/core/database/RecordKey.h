#pragma once

#include "core/Ids.h"
#include "core/database/Transaction.h"

#include <string_view>

namespace quorvane::database {

/// Makes room for a record that is about to be written whole, and returns its key. A stored record
/// of that key is removed and its key kept; a record without a key, or one that was deleted
/// meanwhile, gets the table's next free key, because its own may be taken.
int ClaimKey(Transaction& transaction, std::string_view table, int id);

template <class Tag>
Id<Tag> ClaimKey(Transaction& transaction, std::string_view table, Id<Tag> id) {
  return Id<Tag>{ClaimKey(transaction, table, id.value)};
}

}  // namespace quorvane::database
