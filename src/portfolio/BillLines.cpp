#include "portfolio/BillLines.h"

#include "core/text/Amounts.h"
#include "transactions/bills/Bill.h"

#include <cmath>

namespace quorvane::portfolio {
namespace {

RecordedLine LineOf(const BillLineRow& row, LotId lot, double quantity) {
  RecordedLine line;
  line.lot = lot;
  line.row = &row;
  line.quantity = quantity;
  line.net = quorvane::bills::NetRate(
      row.purchase ? quorvane::bills::Side::kPurchase : quorvane::bills::Side::kSale, row.rate,
      row.brokerage);
  line.amount = text::RoundAmount(line.net * quantity);
  return line;
}

/// The part of a charge that falls to the shares up to `quantity`; parts of a growing quantity
/// never fall, so that no line gets a negative charge.
double UpTo(double charge, double quantity, double whole) {
  return quantity >= whole ? charge : text::RoundAmount(charge * quantity / whole);
}

/// What a charge grows by from one line to the next. Amounts are written with a few decimals; the
/// difference of two large ones keeps dust that is not small beside a small rest.
double Growth(double from, double to) {
  constexpr double kMillionth = 1e6;
  return std::round((to - from) * kMillionth) / kMillionth;
}

}  // namespace

RecordedLine WholeLine(const BillLineRow& row, LotId lot) {
  RecordedLine line = LineOf(row, lot, row.quantity);
  line.service_tax = row.service_tax;
  line.stt = row.stt;
  return line;
}

void AppendSplitLines(const BillLineRow& row, const std::vector<HoldingsBook::Piece>& pieces,
                      std::vector<RecordedLine>& lines) {
  double taken = 0;
  double service_tax = 0;
  double stt = 0;
  for (const HoldingsBook::Piece& piece : pieces) {
    RecordedLine line = LineOf(row, piece.lot, piece.quantity);
    taken = ledger::SettleQuantity(taken + piece.quantity);
    const double service_tax_so_far = UpTo(row.service_tax, taken, row.quantity);
    const double stt_so_far = UpTo(row.stt, taken, row.quantity);
    line.service_tax = Growth(service_tax, service_tax_so_far);
    line.stt = Growth(stt, stt_so_far);
    service_tax = service_tax_so_far;
    stt = stt_so_far;
    lines.push_back(line);
  }
}

}  // namespace quorvane::portfolio
