#pragma once

#include "core/database/Connection.h"
#include "core/rates/IsinBook.h"
#include "masters/imports/ScripImport.h"

#include <cstddef>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace quorvane::imports {

/// The scrips that are recorded, found for the rows of a file by either code or by an ISIN. Codes
/// are compared without regard to capitals.
class StoredScrips {
 public:
  /// Throws DatabaseError.
  explicit StoredScrips(database::Connection& connection);

  /// The scrip that a row belongs to, as PlanImport says; nullptr for a new one. A scrip without a
  /// code of the Bombay exchange is given to the first row only that finds it by its ISIN.
  const ImportedScrip* Of(const rates::PriceRow& row);

  /// Whether the scrip was not seen under that ISIN before; false for an empty one.
  bool IsNewIsin(ScripId scrip, const std::string& isin) const;

 private:
  using Index = std::unordered_map<std::string, std::size_t>;

  const ImportedScrip* Find(const Index& index, const std::string& key) const;
  const ImportedScrip* AnyOf(const std::string& isin) const;
  const ImportedScrip* WithoutBombayCode(const std::string& isin);

  std::vector<ImportedScrip> scrips_;
  std::unordered_map<ScripId, std::size_t> by_id_;
  Index by_code_;
  Index by_symbol_;
  rates::Isins isins_;
  std::set<ScripId> given_;
};

}  // namespace quorvane::imports
