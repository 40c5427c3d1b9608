#pragma once

#include "core/Ids.h"

#include <QString>

#include <cstdint>
#include <span>
#include <vector>

namespace quorvane::bills {

/// As stored: 1 is a purchase.
enum class Side : std::uint8_t { kSale = 0, kPurchase = 1 };

/// One line of a broker's bill: a sale or a purchase of one scrip.
struct BillLine {
  Side side = Side::kPurchase;
  LotId lot;  ///< the lot that a sale draws on or that a purchase landed in
  ScripId scrip;
  double quantity = 0;     ///< shares
  double rate = 0;         ///< rupees a share
  double brokerage = 0;    ///< rupees a share
  double net = 0;          ///< rupees a share, with brokerage
  double amount = 0;       ///< rupees
  double service_tax = 0;  ///< rupees
  double stt = 0;          ///< rupees
  double stt_percent = 0;  ///< the percentage that `stt` was proposed from
  bool fo = false;         ///< futures and options
  QString delivery_type = QStringLiteral("N.A.");
};

/// A broker's bill (contract note) with its lines in the order of entry. Amounts in rupees.
struct Bill {
  BillId id;  ///< none until it is saved
  QString number;
  QString date;  ///< dd/mm/yyyy
  BrokerId broker;
  ExchangeId exchange;
  AccountId account;  ///< may be none
  double total = 0;
  double other_charges = 0;
  double stt = 0;
  double transaction_charges = 0;
  double grand_total = 0;
  QString settlement_number;
  std::vector<BillLine> lines;
};

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

}  // namespace quorvane::bills
