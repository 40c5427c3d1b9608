#pragma once

#include "core/records/Bill.h"
#include "core/text/Paise.h"

#include <QString>

#include <cstdint>
#include <span>

namespace quorvane::records {

/// The percentages of a year and delivery type from which charges are proposed.
struct ChargePercents {
  double brokerage = 0;
  double stt = 0;
  double service_tax = 0;
};

/// Proposed charges. They are not rounded here; the boxes round when they are left.
double DefaultBrokerage(const ChargePercents& percents, double rate);  ///< rupees a share
double DefaultServiceTax(const ChargePercents& percents, double brokerage, double quantity);
double DefaultStt(const ChargePercents& percents, double amount);

/// Whole rupees, 50 paise up, as exchanges charge the STT of a contract note.
double InWholeRupees(double stt);

/// Rupees a share that a sale brings or a purchase costs, brokerage taken off or added; not
/// rounded.
double NetRate(Side side, double rate, double brokerage);

/// Sets a line's net rate and amount from its quantity, rate and brokerage.
void ComputeAmount(BillLine& line);

enum class TotalCaption : std::uint8_t { kReceivable, kPayable };

/// "Total Receivable" or "Total Payable".
QString CaptionText(TotalCaption caption);

/// The grand total as it is shown.
struct GrandTotal {
  double value = 0;
  TotalCaption caption = TotalCaption::kReceivable;
};

/// How the sum of a bill's totals and charges is shown, given the bill's total as its box has it:
/// payable, with its sign turned, only when that total is negative and the sum is not.
GrandTotal ShowGrandTotal(double total, double sum);

/// The caption of a bill that was saved, by the sign of the grand total that is stored.
TotalCaption SavedCaption(double stored_grand_total);

struct BillTotals {
  double total = 0;        ///< sales less purchases with their service tax, without its sign
  double stt = 0;          ///< STT of sales less that of purchases, without its sign
  double grand_total = 0;  ///< both and the charges
  TotalCaption caption = TotalCaption::kReceivable;
};

/// The totals of a bill while it is entered, in rupees rounded to paise.
BillTotals ComputeTotals(std::span<const BillLine> lines, double other_charges,
                         double transaction_charges);

/// What a bill comes to as its contract note has it, in whole paise: the same on paper, in the bill
/// window and in the broker account. Every line counts with the paise that it shows.
struct NoteAmounts {
  text::Paise purchases;    ///< with brokerage
  text::Paise sales;        ///< brokerage taken off
  text::Paise service_tax;  ///< or GST, of both sides
  text::Paise stt;          ///< of both sides
  text::Paise charges;      ///< other and transaction charges

  /// What the client is to receive; below zero what the client owes the broker.
  text::Paise Net() const { return sales - purchases - service_tax - stt - charges; }

  NoteAmounts& operator+=(const NoteAmounts& other);
};

/// The net of a note in words: "1250.00 to receive" or "1250.00 to pay".
QString NetText(text::Paise net);

/// Charges in rupees; a discount is a charge below zero.
NoteAmounts AmountsOnNote(std::span<const BillLine> lines, double other_charges,
                          double transaction_charges);

}  // namespace quorvane::records
