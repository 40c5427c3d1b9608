#pragma once

#include "core/Ids.h"
#include "core/Progress.h"
#include "core/database/Transaction.h"
#include "core/rates/PriceFile.h"

namespace quorvane::imports {

enum class ScripState { kNew, kChanged, kUnchanged };

/// A scrip as an import leaves it. UTF-8.
struct ImportedScrip {
  ScripId id = {};  ///< none for a new one
  ScripState state = ScripState::kNew;
  std::string code = {};
  std::string symbol = {};  ///< the second exchange's code
  std::string name = {};
  std::string scrip_class = {};
  std::string type = {};
};

struct ImportCounts {
  std::size_t added = 0;
  std::size_t changed = 0;
  std::size_t unchanged = 0;

  bool operator==(const ImportCounts&) const = default;
};

/// What taking the file in would make of the scrips, a row each in the order of the file. A row
/// belongs to the scrip of its code, a row without one to the scrip of its symbol. What the file
/// does not tell stays as the scrip has it; a new scrip is then an "EQUITY" of its group or series.
std::vector<ImportedScrip> PlanImport(database::Connection& connection,
                                      const rates::PriceFile& file);

ImportCounts CountStates(const std::vector<ImportedScrip>& scrips);

/// Adds and changes the scrips of the file, and the classes and types that are missing, in one
/// transaction. Throws Cancellation or DatabaseError; nothing was changed then.
ImportCounts ImportScrips(database::Connection& connection, const rates::PriceFile& file,
                          Progress& progress);

}  // namespace quorvane::imports
