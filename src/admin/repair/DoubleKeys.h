#pragma once

#include "core/Result.h"
#include "core/database/Transaction.h"

#include <QStringList>

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane::repair {

/// A record whose key another record of its table has too.
struct DoubleRecord {
  std::string table;
  int key = 0;
  std::int64_t row = 0;  ///< RowKey: the order of their making
  QString contents;      ///< its fields, cut at 200 letters
};

/// All such records, by table, key and row.
std::vector<DoubleRecord> FindDoubleRecords(database::Connection& connection);

/// The result of giving new keys.
struct NewKeys {
  int given = 0;
  int removed = 0;      ///< copies, equal to the record that stays in every field
  QStringList refused;  ///< a sentence for each key that stays doubled, with the reason
};

/// Gives all but the first record of each doubled key a new one, in one transaction. Records that
/// name the key get the new one when their client shows which record is meant; where it does not,
/// equal records become one, and others stay as they are. Throws DatabaseError.
NewKeys GiveNewKeys(database::Connection& connection);

}  // namespace quorvane::repair
