#pragma once

#include "core/text/Dates.h"
#include "transactions/bills/EntryLookups.h"

#include <QString>

#include <functional>

class QObject;

namespace quorvane::bills {

/// A scrip whose price on a day is looked for at an exchange.
struct RateQuestion {
  QString exchange;  ///< "BSE" or "NSE"
  ScripFound scrip;
  text::Date date;
};

/// Looks for the price without making the caller wait, and hands the rate in rupees to `answer`
/// later in the same thread: 0 when nothing was found. The answer is dropped when `asker` is gone.
using RateSource = std::function<void(const RateQuestion& question, QObject* asker,
                                      std::function<void(double rate)> answer)>;

}  // namespace quorvane::bills
