#pragma once

#include "core/Ids.h"
#include "core/Progress.h"
#include "core/Result.h"
#include "core/database/Transaction.h"
#include "core/rates/IsinBook.h"

#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace quorvane::scrips {

/// A security.
struct Scrip {
  ScripId id;  ///< none until it is saved
  QString code;
  QString name;
  QString second_code;  ///< the other exchange's; may be empty
  int type = 0;         ///< key of a scrip type, 0 when none is chosen
  int scrip_class = 0;  ///< key of a scrip class, 0 when none is chosen

  /// By the days from which the scrip has them; nullopt leaves them as they are recorded.
  std::optional<std::vector<rates::DatedIsin>> isins = {};
};

/// Checks code, name, type and class, then the lengths of texts, then the ISINs. That the code is
/// free is checked by the book.
MaybeRefusal CheckScrip(const Scrip& scrip);

/// The scrips in the database. Every save and delete is one transaction; one that is refused, or
/// that throws DatabaseError, changes nothing.
class ScripBook {
 public:
  explicit ScripBook(database::Connection& connection);

  /// By name, then by id, without their ISINs.
  std::vector<Scrip> List() const;

  /// Those of the keys that are there, in no order.
  std::vector<Scrip> List(std::span<const int> keys) const;

  /// With its ISINs.
  std::optional<Scrip> Load(ScripId id) const;

  /// Writes a new scrip, or a changed one in place of the old. Returns its id.
  Result<ScripId> Save(const Scrip& scrip);

  /// Removes the scrip with its transfers, bill lines, opening stock, lots and rates, and the
  /// header of every bill that had it; lines of other scrips on those bills stay but no longer
  /// count: the holdings of every client and year that lost a bill are rebuilt. Throws
  /// Cancellation when the user stops it.
  void Delete(ScripId id, Progress& progress);

 private:
  database::Connection& connection_;
};

}  // namespace quorvane::scrips
