#pragma once

#include "core/database/BulkWriter.h"
#include "core/database/Transaction.h"
#include "core/rates/IsinBook.h"
#include "masters/imports/ScripImport.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quorvane::imports {

/// The keys of a small table of names; what is missing is added.
class NameKeys {
 public:
  /// Reads the table and locks its rows to the end of the transaction.
  NameKeys(database::Transaction& transaction, std::string_view table, std::string_view column);

  /// 0 for an empty name.
  int KeyOf(const std::string& name);

 private:
  database::Transaction& transaction_;
  std::string table_;
  std::unordered_map<std::string, int> keys_;
};

/// Writes the scrips of an import that are new or changed, and the ISINs under which they were
/// seen. Until Finish is called, they may not be in the database. Throws DatabaseError.
class ScripWriter {
 public:
  explicit ScripWriter(database::Transaction& transaction);

  void Write(const ImportedScrip& scrip);

  /// `day` is that of the file, when it tells one.
  void Finish(std::optional<text::Date> day);

 private:
  database::Transaction& transaction_;
  int next_;
  NameKeys classes_;
  NameKeys types_;
  database::BulkWriter update_;
  database::BulkWriter insert_;
  std::vector<rates::SeenIsin> seen_;
};

}  // namespace quorvane::imports
