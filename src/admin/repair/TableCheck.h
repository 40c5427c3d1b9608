#pragma once

#include "core/Ids.h"
#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/database/SchemaTables.h"
#include "core/ledger/Rebuild.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane::repair {

struct TableSize {
  std::string table;
  std::int64_t rows = 0;
};

/// A table that is not in order: what the server's own check says of it, or why it cannot be read.
struct TableFault {
  std::string table;
  std::string text;
};

/// A key that the program keeps unique by itself and that is there more than once.
struct DoubleKey {
  std::string table;
  std::string columns;
  std::int64_t keys = 0;  ///< how many of them
};

/// Rows of a table that name a record which is not there. Reports leave such rows out or show them
/// without a name.
struct Dangling {
  std::string table;
  std::string column;
  std::string names;  ///< table of the missing records
  std::int64_t rows = 0;
};

/// Lines whose bill is gone. They count nowhere, and no new bill takes them over.
struct LostLines {
  ClientId client;
  std::string year;
  BillId bill;
  std::int64_t lines = 0;
};

/// What a check of the whole database finds.
struct TableCheck {
  std::vector<TableSize> sizes;  ///< every table, in the order of its creation
  std::vector<TableFault> faults;
  std::vector<std::string> unchecked;  ///< tables that the server does not let this user check
  std::vector<DoubleKey> double_keys;
  // Faults between several tables; not looked for while one of the tables has a fault.
  std::vector<ledger::LotChange> wrong_lots;
  QStringList log_faults;     ///< a sentence for each break in the log of changes
  QStringList record_faults;  ///< a sentence for each record that cannot count as it is written
  // For information: nothing is wrong with the table itself.
  std::vector<Dangling> dangling;
  std::vector<LostLines> lost_lines;
  QStringList outdated_actions;  ///< a sentence for each that the books no longer agree with

  bool AllIsWell() const {
    return faults.empty() && double_keys.empty() && wrong_lots.empty() && record_faults.isEmpty() &&
           log_faults.isEmpty();
  }
};

/// The number of rows of every table, in the order of its creation.
std::vector<TableSize> CountRows(database::Connection& connection);

/// Lets the server check every table, then checks keys, references and lots as they are at one
/// instant. A table that cannot be read is listed, and the check goes on with the others. Changes
/// nothing. Not for use inside a transaction. Throws DatabaseError when the connection is lost, or
/// Cancellation.
TableCheck CheckTables(database::Connection& connection, Progress& progress);

/// The references that are checked; not those of the scratch table.
std::vector<database::KeyReference> CheckedReferences();

/// How many rows name a record that is not there. NULL and 0 name none.
std::int64_t CountDangling(database::Connection& connection,
                           const database::KeyReference& reference);

/// By bill.
std::vector<LostLines> FindLostLines(database::Connection& connection);

}  // namespace quorvane::repair
