#pragma once

#include "core/Ids.h"
#include "core/Refusal.h"
#include "core/text/FinancialYear.h"

#include <QString>

namespace quorvane::opening_stock {

/// A lot that a client holds already when a financial year begins.
struct OpeningLot {
  OpeningId id;  ///< none until it is saved
  ScripId scrip;
  AccountId account;
  double quantity = 0;     ///< shares
  double rate = 0;         ///< rupees a share
  double total = 0;        ///< rupees
  QString purchase_date;   ///< dd/mm/yyyy
  double service_tax = 0;  ///< rupees for the whole quantity
  double brokerage = 0;    ///< rupees a share; only carried lots have it
  double stt = 0;          ///< rupees for the whole quantity
  bool fo = false;         ///< futures and options
};

/// Rupees for a quantity at a rate with brokerage, rounded to paise.
double OpeningTotal(double quantity, double rate, double brokerage);

/// A completed purchase date (dd/mm/yyyy) when an opening lot of the year may have it, else an
/// empty text: a day after the year's last one is cleared without a word.
QString KeepPurchaseDate(const QString& date, text::FinancialYear year);

/// The first rule that the lot breaks: scrip, quantity, account, purchase date.
MaybeRefusal CheckOpening(const OpeningLot& lot, text::FinancialYear year);

}  // namespace quorvane::opening_stock
