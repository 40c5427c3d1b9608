#include "portfolio/BillShares.h"

#include "core/text/Paise.h"

#include <algorithm>

namespace quorvane::portfolio {

using ledger::Layers;
using ledger::LotKey;
using ledger::Place;
using text::Shares;

std::span<const BillLineRow> BillShares::LinesOf(const BillRow& bill) const {
  return std::span(portfolio_.bill_lines).subspan(bill.first_line, bill.line_count);
}

std::size_t BillShares::PlaceOf(const BillLineRow& row) const {
  return static_cast<std::size_t>(&row - portfolio_.bill_lines.data());
}

void BillShares::ReceiveNonDelivery(const BillRow& bill, const Place& place) {
  Receive(bill, place, true);
}

void BillShares::ReceiveDelivered(const BillRow& bill, const Place& place) {
  Receive(bill, place, false);
}

void BillShares::Receive(const BillRow& bill, const Place& place, bool non_delivery) {
  for (const BillLineRow& row : LinesOf(bill)) {
    if (row.IsPurchase() && row.IsNonDelivery() == non_delivery) {
      purchase_lots_[PlaceOf(row)] =
          layers_.Receive(names_.LotKeyAt(place, row.scrip, row.rate),
                          {bill.date, row.quantity, non_delivery, row.fo});
    }
  }
}

bool BillShares::TrySales(const BillRow& bill, const Place& place, Ahead ahead) {
  layers_.Mark();
  lines_.clear();
  bool possible = true;
  for (const BillLineRow& row : LinesOf(bill)) {
    if (row.IsPurchase()) {
      AddWhole(row, purchase_lots_[PlaceOf(row)]);
    } else if (!TakeSale(row, bill.date, place, ahead)) {
      possible = false;
      if (ahead == Ahead::kNo) {
        break;
      }
    }
  }
  if (!possible) {
    layers_.GoBack();
  }
  return possible;
}

/// The lots of a sale: the one that it names, else those of the oldest purchases.
Layers::Taken BillShares::Take(const BillLineRow& row, text::Date date, const LotKey& lot) {
  const Place place{lot.of, lot.account};
  if (row.lot_rate != BillLineRow::kNoLotRate) {
    return layers_.TakeFromLot(lot, row.quantity);
  }
  return row.IsNonDelivery() ? layers_.TakeNonDelivery(place, lot.scrip, date, row.quantity)
                             : layers_.TakeOldest(place, lot.scrip, date, row.quantity);
}

bool BillShares::TakeSale(const BillLineRow& row, text::Date date, const Place& place,
                          Ahead ahead) {
  if (row.lot_rate == BillLineRow::kNoLot) {
    AddWhole(row, LotId{});
    return true;
  }
  const LotKey lot = names_.LotKeyAt(place, row.scrip, row.lot_rate);
  const Layers::Taken taken = Take(row, date, lot);
  if (taken) {
    AddPieces(row, taken.pieces);
  } else if (ahead == Ahead::kNo) {
    return false;
  } else if (row.lot_rate == BillLineRow::kNoLotRate) {
    ReportShortage(row, taken.available);
    return false;
  } else {
    const auto advance = layers_.TakeAhead(lot, row.quantity);
    AddWhole(row, advance.lot);
    advances_.push_back({&row, std::max(taken.available, Shares()), advance});
  }
  return true;
}

void BillShares::AddWhole(const BillLineRow& row, LotId lot) {
  lines_.push_back({&row, lot, row.quantity, row.service_tax, row.stt});
}

/// A line for each lot that a sale draws on, with its part of the row's charges.
void BillShares::AddPieces(const BillLineRow& row, std::span<const Layers::Piece> pieces) {
  text::ShareOut service_tax(row.service_tax, row.quantity);
  text::ShareOut stt(row.stt, row.quantity);
  for (const Layers::Piece& piece : pieces) {
    lines_.push_back({&row, piece.lot, piece.quantity, service_tax.Next(piece.quantity),
                      stt.Next(piece.quantity)});
  }
}

void BillShares::ReportAdvances() {
  for (const SaleAhead& sale : advances_) {
    if (layers_.IsOpen(sale.advance)) {
      ReportShortage(*sale.row, sale.available);
    }
  }
}

void BillShares::ReportShortage(const BillLineRow& row, Shares available) {
  const bool named = row.lot_rate != BillLineRow::kNoLotRate;
  errors_.AddShortage(row.line, named && available <= Shares() ? "lot_rate" : "quantity",
                      available);
}

}  // namespace quorvane::portfolio
