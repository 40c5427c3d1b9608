#pragma once

#include "core/database/Transaction.h"
#include "masters/lookup_masters/LookupMaster.h"

#include <optional>
#include <vector>

namespace quorvane::lookup_masters {

/// The rows of one lookup table. Every save and delete is one transaction; one that is refused, or
/// that throws DatabaseError, changes nothing.
class LookupBook {
 public:
  LookupBook(database::Connection& connection, LookupKind kind);

  const LookupMaster& Master() const { return master_; }

  /// In the master's order.
  std::vector<LookupRow> List() const;

  std::optional<LookupRow> Load(int id) const;

  /// Writes a new row, or a changed one in place of the old. Returns its id. `row` has a
  /// value for each column.
  Result<int> Save(const LookupRow& row);

  /// Adds those rows that the table lacks by its unique columns, in one transaction; those that
  /// exist stay. Returns what was added.
  std::vector<LookupRow> AddMissing(const std::vector<LookupRow>& rows);

  /// Records that refer to the row stay as they are.
  void Delete(int id);

 private:
  Result<int> SaveIn(database::Transaction& transaction, LookupRow row) const;
  bool IsTaken(database::Transaction& transaction, const LookupRow& row) const;
  LookupRow RowOf(const database::Recordset& record) const;
  std::string SelectFrom() const;

  database::Connection& connection_;
  const LookupMaster& master_;
};

}  // namespace quorvane::lookup_masters
