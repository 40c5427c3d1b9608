#pragma once

#include "core/Result.h"
#include "core/records/BillAmounts.h"
#include "core/text/Dates.h"
#include "core/text/FinancialYear.h"

#include <optional>

namespace quorvane::bills {

using records::Bill;
using records::BillLine;
using records::Side;

/// Each check returns the first rule that is broken, with the field of what was entered wrong.

/// What a bill needs to be saved in a year: number, date, broker and exchange, then its lines in
/// order. Statements take bills by year and date: they would not show one dated outside its year.
MaybeRefusal CheckBill(const Bill& bill, text::FinancialYear year);

/// Refuses a date that is filled in and is not in the year.
MaybeRefusal CheckYear(const QString& date, text::FinancialYear year);

/// What a bill needs before a line is begun: date and exchange.
MaybeRefusal CheckBeforeLine(const Bill& bill);

/// What a line needs: a side, a scrip and shares.
MaybeRefusal CheckLine(std::optional<Side> side, ScripId scrip, text::Shares quantity);

/// A sale of a scrip that has lots in the account must name the lot that it draws on.
MaybeRefusal CheckLot(Side side, LotId lot, bool scrip_has_lots);

/// The date before a scrip is entered: a day that is not after `today`.
MaybeRefusal CheckDate(const QString& date, text::Date today);

/// The quantity of a sale must not exceed `balance`, which the balance grid shows for its lots.
/// Not checked without a balance: the grid is empty.
MaybeRefusal CheckSale(Side side, text::Shares quantity, std::optional<text::Shares> balance);

}  // namespace quorvane::bills
