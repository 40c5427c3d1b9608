#pragma once

#include "core/Ids.h"
#include "core/Result.h"
#include "core/database/Connection.h"
#include "core/rates/IsinBook.h"
#include "core/text/Dates.h"

#include <QString>

#include <span>
#include <unordered_map>
#include <vector>

namespace quorvane::rates {

/// A scrip's rate of a day, in rupees a share.
struct ScripRate {
  ScripId scrip;
  double rate = 0;
};

/// A rate and the day that it is of.
struct DatedRate {
  text::Date date;
  double rate = 0;
};

/// The date of rates as typed: "Enter Date." when it is missing or no date, "You can't insert
/// future Date" when it is after `today`. `field` is the box.
MaybeRefusal CheckRateDate(const QString& date, text::Date today);

/// The recorded market rates, at most one a scrip and day. A rate of 0 is none.
class RateBook {
 public:
  explicit RateBook(database::Connection& connection);

  std::unordered_map<ScripId, double> RatesOf(text::Date date) const;

  /// Each scrip's newest rate of that day or an earlier one. One query.
  std::unordered_map<ScripId, DatedRate> NewestUpTo(text::Date date) const;

  /// The days that have rates, the newest first.
  std::vector<text::Date> Dates() const;

  /// Records the rates of a day in one transaction: a scrip's rate takes the place of an earlier
  /// one of the day, a rate of 0 removes it, and scrips that are not named keep theirs. Of several
  /// rates of one scrip the last one counts. The ISINs of the file that the rates came from are
  /// kept along with them.
  void Save(text::Date date, std::span<const ScripRate> rates,
            std::span<const SeenIsin> isins = {});

  /// Deletes every rate of a day; returns how many there were.
  std::int64_t DeleteDate(text::Date date);

 private:
  database::Connection& connection_;
};

}  // namespace quorvane::rates
