#pragma once

#include "core/database/Transaction.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace quorvane::database {

/// A new key of a table: one more than the largest ever given, from the table's row of RecordKey,
/// which the transaction raises. So a key that became free never names another record. A second
/// writer who asks waits until the transaction ends; on another node of a cluster the later of the
/// two is given up and does its work again, as InTransaction does. A counter is never behind its
/// table, also where a program without counters wrote. Stock and Stock_Temp have one counter, that
/// of Stock. Throws std::runtime_error when a table's keys are used up.
int NextKey(Transaction& transaction, std::string_view table);

/// `count` new keys in a row; returns the first.
int NextKeys(Transaction& transaction, std::string_view table, int count);

/// The key that NextKey would give. Nobody else is given one of the table until the transaction
/// ends. For work that does not know in advance how many keys it needs: it counts on from this one
/// and then calls KeepKeys.
int FirstFreeKey(Transaction& transaction, std::string_view table);

/// All keys below `next` count as given. Follows FirstFreeKey in its transaction.
void KeepKeys(Transaction& transaction, std::string_view table, int next);

/// The last key given of each table that has a counter.
using KeyCounters = std::map<std::string, std::int64_t>;
KeyCounters ReadCounters(Connection& connection);

/// Raises each counter to the one given and makes those that are missing; lowers none.
void RaiseCounters(Transaction& transaction, const KeyCounters& counters);

/// Makes the counters that are missing. They start after every key in the database, also one that
/// only lines of a deleted record name, so that no new record gets those lines.
void MakeCounters(Connection& connection);

}  // namespace quorvane::database
