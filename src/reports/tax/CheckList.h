#pragma once

#include "core/database/Connection.h"
#include "reports/tax/TaxBook.h"

#include <QString>

#include <cstdint>
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

/// In the order of the kinds; those of one kind by scrip and day. Reads names, ISINs and corporate
/// actions, one query a table.
std::vector<Point> CheckPoints(database::Connection& connection,
                               const lookups::Directory& directory, const ClientTax& tax,
                               Progress& progress);

bool HasOpen(const std::vector<Point>& points);

}  // namespace quorvane::tax_year
