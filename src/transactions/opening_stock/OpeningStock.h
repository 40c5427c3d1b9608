#pragma once

#include "core/Result.h"
#include "core/records/Opening.h"
#include "core/text/FinancialYear.h"

#include <QString>

namespace quorvane::opening_stock {

using OpeningLot = records::Opening;
using records::OpeningTotal;
using text::Shares;

/// A completed purchase date (dd/mm/yyyy) when an opening lot of the year may have it, else an
/// empty text: a day after the year's last one is cleared without a message.
QString KeepPurchaseDate(const QString& date, text::FinancialYear year);

/// The first rule that the lot breaks: scrip, quantity, account, purchase date, rate.
MaybeRefusal CheckOpening(const OpeningLot& lot, text::FinancialYear year);

}  // namespace quorvane::opening_stock
