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
  std::string isin = {};  ///< of the file; empty when the scrip was seen under it before
};

struct ImportCounts {
  std::size_t added = 0;
  std::size_t changed = 0;
  std::size_t unchanged = 0;

  bool operator==(const ImportCounts&) const = default;
};

/// The scrips as they would be after the import, one for each row in the order of the file. A row
/// belongs to the scrip of its code; one of the National exchange to the scrip of its symbol. Where
/// there is none, or where that one has other ISINs, it belongs to the scrip that was seen under
/// its ISIN, so that a scrip of both exchanges is one scrip with both codes; a second code of the
/// Bombay exchange with one ISIN is a scrip of its own. What the file does not tell stays as the
/// scrip has it; a new scrip has the type that its series tells, else "EQUITY".
std::vector<ImportedScrip> PlanImport(database::Connection& connection,
                                      const rates::PriceFile& file);

ImportCounts CountStates(const std::vector<ImportedScrip>& scrips);

/// Adds and changes the scrips of the file, and the classes and types that are missing, in one
/// transaction. Throws Cancellation or DatabaseError; nothing was changed then.
ImportCounts ImportScrips(database::Connection& connection, const rates::PriceFile& file,
                          Progress& progress);

}  // namespace quorvane::imports
