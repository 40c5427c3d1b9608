#pragma once

#include "core/app/Folders.h"
#include "core/text/Dates.h"
#include "transactions/bills/EntryLookups.h"

#include <QString>

#include <functional>

namespace quorvane::bills {

/// A scrip whose price on a day is looked for at an exchange.
struct RateQuestion {
  QString exchange;  ///< "BSE" or "NSE"
  ScripFound scrip;
  text::Date date;
  text::Date today;
};

/// Looks for a price without making anybody wait, and hands the rate in rupees to `answer` later in
/// the same thread: 0 when nothing was found. A new question takes the place of the one under way.
using RateSource =
    std::function<void(const RateQuestion& question, std::function<void(double rate)> answer)>;

/// Asks the exchange for the closing price of the day, and for the current quote when that is today
/// and there is none yet. Answers are given as long as the source exists.
RateSource AskExchanges(const app::Folders& folders);

}  // namespace quorvane::bills
