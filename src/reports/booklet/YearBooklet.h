#pragma once

#include "core/ClientYear.h"
#include "core/Progress.h"
#include "core/Result.h"
#include "core/database/Connection.h"
#include "core/text/Dates.h"
#include "reporting/output/Booklet.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string_view>

namespace quorvane::booklet {

/// What a booklet can hold, in its order.
enum class Part : std::uint8_t {
  kValue,      ///< the largest holdings at the year's end, with a chart of the composition
  kHoldings,   ///< every holding by client, cost beside market value
  kGains,      ///< of the year by kind, with a chart by month
  kTax,        ///< the tax year, of each client
  kDividends,  ///< of each client
  kReturns,    ///< money-weighted, by scrip, account and client
  kMonths,     ///< value by month with its chart
};

struct PartEntry {
  Part part = Part::kValue;
  const char* name = "";   ///< as on the command line
  const char* title = "";  ///< to be translated; context "Booklet"
};

/// Every part, in the order of the enumeration.
std::span<const PartEntry> Parts();

/// Finds a part by its name; nullopt for another word.
std::optional<Part> PartNamed(std::string_view name);

struct BookletQuery {
  ClientYear of;
  bool family = false;  ///< the client and all others of the same group
  std::set<Part> parts;
  text::Date today;
  QString data_folder;  ///< of shipped files: the tax law
};

/// The day up to which the booklet reports: the last of the year, or today while the year runs.
text::Date LastDayOf(const BookletQuery& query);

/// Makes the booklet of a year from the reports that the program has: every sum in it is one of
/// theirs. The tax of a year whose law is not known is left out, and a line says so. Refused
/// without a part, and for a year that has not begun. Throws DatabaseError and Cancellation.
Result<reporting::Booklet> MakeBooklet(database::Connection& connection, const BookletQuery& query,
                                       Progress& progress);

}  // namespace quorvane::booklet
