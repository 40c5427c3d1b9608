#include "portfolio/BillShares.h"

#include "core/text/Amounts.h"
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

void BillShares::ReceivePurchases(const BillRow& bill, const Place& place) {
  purchase_lots_.clear();
  for (const BillLineRow& row : LinesOf(bill)) {
    if (row.IsPurchase()) {
      purchase_lots_.push_back(
          layers_.Receive(names_.LotKeyAt(place, row.scrip, row.rate), bill.date, row.quantity));
    }
  }
}

bool BillShares::TrySales(const BillRow& bill, const Place& place, Ahead ahead) {
  layers_.Mark();
  lines_.clear();
  std::size_t purchase = 0;
  for (const BillLineRow& row : LinesOf(bill)) {
    if (row.IsPurchase()) {
      AddWhole(row, purchase_lots_[purchase++]);
    } else if (!TakeSale(row, bill.date, place, ahead)) {
      layers_.GoBack();
      return false;
    }
  }
  return true;
}

bool BillShares::TakeSale(const BillLineRow& row, text::Date date, const Place& place,
                          Ahead ahead) {
  if (row.lot_rate == BillLineRow::kNoLot) {
    AddWhole(row, LotId{});
    return true;
  }
  const bool oldest = row.lot_rate == BillLineRow::kNoLotRate;
  const LotKey lot = names_.LotKeyAt(place, row.scrip, row.lot_rate);
  const Layers::Taken taken = oldest ? layers_.TakeOldest(place, lot.scrip, date, row.quantity)
                                     : layers_.TakeFromLot(lot, row.quantity);
  if (taken) {
    AddPieces(row, taken.pieces);
  } else if (ahead == Ahead::kNo) {
    return false;
  } else if (oldest) {
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
  errors_.Add(FileKind::kBills, row.line, named && available <= Shares() ? "lot_rate" : "quantity",
              "You Can't Sale Scripts More than Balance. Maximum Allowed Value is: " +
                  text::FormatAmount(available.Number()).toStdString());
}

}  // namespace quorvane::portfolio
