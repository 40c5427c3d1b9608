#pragma once

#include "core/database/Connection.h"
#include "core/positions/Events.h"
#include "reports/tax/TaxBook.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

namespace quorvane::tax_year {

enum class PointKind : std::uint8_t {
  kCost,            ///< shares were sold that are not on record
  kFairValue,       ///< the highest price of 31-Jan-2018 is missing
  kDifference,      ///< a year opens with another balance than the year before left
  kNoStt,           ///< a sale by a bill without STT
  kFault,           ///< a record that cannot count as it is written
  kAction,          ///< a corporate action is not applied, or not up to date
  kLosses,          ///< losses of the year before are not brought forward
  kIsin,            ///< a scrip of schedule 112A has no ISIN
  kPan,             ///< the client has no PAN
  kBonusStripping,  ///< a loss that the law may not allow
};

/// Something between the user and figures that can be filed.
struct Point {
  PointKind kind = PointKind::kCost;
  QString text;
  bool open = true;  ///< figures may be wrong; otherwise a hint
  QString window;    ///< by which it is mended
  ClientYear of;     ///< for which that window opens
  ScripId scrip;
};

/// Finds what stands before filing. Names, ISINs and corporate actions are read once for all
/// clients.
class CheckList {
 public:
  CheckList(database::Connection& connection, const lookups::Directory& directory);

  /// In the order of the kinds. Throws DatabaseError and Cancellation.
  std::vector<Point> PointsOf(const ClientTax& tax, Progress& progress);

 private:
  friend class Finder;

  /// A corporate action, and whether the books still agree with it once somebody asked.
  struct KnownAction {
    positions::DatedAction dated;
    std::optional<bool> current;
  };

  bool IsCurrent(KnownAction& action, Progress& progress);

  database::Connection& connection_;
  const lookups::Directory& directory_;
  std::set<ScripId> with_isin_;
  std::set<ClientId> without_pan_;
  std::vector<KnownAction> actions_;
};

bool HasOpen(const std::vector<Point>& points);

}  // namespace quorvane::tax_year
