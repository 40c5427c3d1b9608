#include "core/records/MovementOf.h"

#include "core/text/Amounts.h"

namespace quorvane::records {
namespace {

Movement OfAction(const ActionLot& lot, text::Date day) {
  Movement m;
  m.fo = lot.fo;
  m.dated = true;
  m.client = lot.client;
  m.year = lot.year;
  m.account = lot.account;
  m.date = day;
  m.acquired = day;
  m.document = lot.action.value;
  m.line = lot.number;
  return m;
}

}  // namespace

Movement MovementOf(const Opening& opening, text::Date date) {
  Movement m;
  m.kind = MovementKind::kOpening;
  m.fo = opening.fo;
  m.dated = true;
  m.client = opening.client;
  m.year = opening.year;
  m.account = opening.account;
  m.scrip = opening.scrip;
  m.document = opening.id.value;
  m.quantity = opening.quantity;
  m.rate = opening.rate;
  m.brokerage = opening.brokerage;
  m.net = text::Tidy(opening.rate + opening.brokerage);
  m.amount = opening.total;
  m.service_tax = opening.service_tax;
  m.stt = opening.stt;
  m.date = date;
  m.acquired = date;
  return m;
}

Movement MovementOf(const BillLine& line, const BillHead& bill) {
  Movement m;
  m.kind = line.IsPurchase() ? MovementKind::kPurchase : MovementKind::kSale;
  m.fo = line.fo;
  m.dated = bill.dated;
  m.non_delivery = line.delivery_type == kNonDeliveryBased;
  m.client = line.client;
  m.year = line.year;
  m.account = bill.account;
  m.scrip = line.scrip;
  m.date = bill.date;
  m.acquired = bill.date;
  m.document = line.bill.value;
  m.line = line.number;
  m.other = bill.broker.value;
  m.lot = line.lot;
  m.quantity = line.quantity;
  m.rate = line.rate;
  m.brokerage = line.brokerage;
  m.net = line.net;
  m.amount = line.amount;
  m.service_tax = line.service_tax;
  m.stt = line.stt;
  return m;
}

Movement TransferOut(const Transfer& transfer) {
  Movement m;
  m.kind = MovementKind::kTransferOut;
  m.client = transfer.client;
  m.year = transfer.year;
  m.account = transfer.from;
  m.scrip = transfer.scrip;
  const auto date = text::ParseDmy(transfer.date);
  m.dated = date.has_value();
  m.date = date.value_or(text::Date{});
  m.acquired = m.date;
  m.document = transfer.id.value;
  m.other = transfer.to.value;
  m.lot = transfer.lot;
  m.quantity = transfer.quantity;
  m.rate = transfer.rate;
  m.net = transfer.rate;
  m.amount = text::RoundAmount(transfer.rate * transfer.quantity.Number());
  return m;
}

Movement TransferIn(const Transfer& transfer) {
  Movement m = TransferOut(transfer);
  m.kind = MovementKind::kTransferIn;
  m.client = transfer.to_client;
  m.account = transfer.to;
  m.other = transfer.from.value;
  m.lot = {};
  return m;
}

Movement ActionOut(const ActionLot& lot, text::Date day) {
  Movement m = OfAction(lot, day);
  m.kind = MovementKind::kActionOut;
  m.scrip = lot.scrip;
  m.quantity = lot.out;
  m.rate = lot.rate;
  m.net = lot.rate;
  m.amount = text::RoundAmount(lot.rate * lot.out.Number());
  return m;
}

Movement ActionIn(const ActionLot& lot, text::Date day) {
  Movement m = OfAction(lot, day);
  m.kind = MovementKind::kActionIn;
  m.scrip = lot.to_scrip;
  m.acquired = text::ParseDmy(lot.acquired).value_or(day);
  m.quantity = lot.in;
  m.rate = lot.to_rate;
  m.brokerage = lot.brokerage;
  m.net = text::Tidy(lot.to_rate + lot.brokerage);
  m.amount = OpeningTotal(lot.in, lot.to_rate, lot.brokerage);
  m.service_tax = lot.service_tax;
  m.stt = lot.stt;
  return m;
}

}  // namespace quorvane::records
