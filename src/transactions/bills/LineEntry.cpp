#include "transactions/bills/LineEntry.h"

#include "core/text/Amounts.h"

#include <algorithm>

namespace quorvane::bills {
namespace {

constexpr std::array kLineBoxes{BillBox::kQuantity, BillBox::kRate,   BillBox::kBrokerage,
                                BillBox::kNet,      BillBox::kAmount, BillBox::kServiceTax,
                                BillBox::kLineStt};

}  // namespace

void LineEntry::Clear() {
  BillLine kept;
  kept.delivery_type = line_.delivery_type;
  kept.stt_percent = percents_.stt;
  kept.fo = line_.fo;
  line_ = kept;
  boxes_ = {};
  offered_ = {};
}

void LineEntry::Show(const BillLine& line) {
  line_ = line;
  side_ = line.side;
  offered_ = {};
  boxes_.Show(BillBox::kQuantity, line.quantity);
  boxes_.Show(BillBox::kRate, line.rate);
  boxes_.Show(BillBox::kBrokerage, line.brokerage);
  boxes_.Show(BillBox::kNet, line.net);
  boxes_.Show(BillBox::kAmount, line.amount);
  boxes_.Show(BillBox::kServiceTax, line.service_tax);
  boxes_.Show(BillBox::kLineStt, line.stt);
}

void LineEntry::Enter(BillBox box) {
  switch (box) {
    case BillBox::kBrokerage:
      return Offer(box, DefaultBrokerage(percents_, boxes_.Number(BillBox::kRate)));
    case BillBox::kServiceTax:
      return Offer(box, DefaultServiceTax(percents_, boxes_.Number(BillBox::kBrokerage),
                                          boxes_.Number(BillBox::kQuantity)));
    case BillBox::kLineStt:
      return Offer(box, DefaultStt({.stt = line_.stt_percent}, boxes_.Number(BillBox::kAmount)));
    default:
      return;
  }
}

void LineEntry::Leave(BillBox box) {
  LeaveBox(box, side_.value_or(Side::kPurchase), boxes_);
}

void LineEntry::SetSide(std::optional<Side> side) {
  if (side_ == side) {
    return;
  }
  side_ = side;
  line_.lot = {};
  if (!boxes_[BillBox::kAmount].isEmpty()) {
    RecomputeLine(side_.value_or(Side::kPurchase), boxes_);
  }
}

void LineEntry::SetScrip(ScripId scrip) {
  if (line_.scrip == scrip) {
    return;
  }
  line_.scrip = scrip;
  line_.lot = {};
  if (offered_[static_cast<std::size_t>(BillBox::kRate)] && StandsAsOffered(BillBox::kRate)) {
    boxes_.Type(BillBox::kRate, {});
  }
}

void LineEntry::SetLot(LotId lot, ScripId scrip) {
  SetScrip(scrip);
  line_.lot = lot;
}

void LineEntry::SetDelivery(Delivery delivery, const ChargePercents& percents) {
  line_.delivery_type = DeliveryText(delivery);
  line_.stt_percent = percents.stt;
  percents_ = percents;
}

void LineEntry::SetSttPercent(double percent) {
  line_.stt_percent = percent;
}

bool LineEntry::OfferRate(double rate) {
  if (!StandsAsOffered(BillBox::kRate)) {
    return false;
  }
  Offer(BillBox::kRate, rate);
  Leave(BillBox::kRate);
  return true;
}

bool LineEntry::StandsAsOffered(BillBox box) const {
  const QString& text = boxes_[box];
  const auto& offered = offered_[static_cast<std::size_t>(box)];
  return text.isEmpty() ||
         (offered && (text == text::NumberText(*offered) || text == text::FormatAmount(*offered)));
}

void LineEntry::Offer(BillBox box, double number) {
  if (StandsAsOffered(box)) {
    boxes_.Type(box, text::NumberText(number));
    offered_[static_cast<std::size_t>(box)] = number;
  }
}

bool LineEntry::IsEmpty() const {
  const auto holds_nothing = [this](BillBox box) { return boxes_.Number(box) == 0; };
  return !line_.scrip && std::ranges::all_of(kLineBoxes, holds_nothing);
}

BillLine LineEntry::Entered() const {
  BillLine line = line_;
  line.side = side_.value_or(Side::kPurchase);
  line.lot = line.side == Side::kSale ? line_.lot : LotId{};
  line.quantity = boxes_.Number(BillBox::kQuantity);
  line.rate = boxes_.Number(BillBox::kRate);
  line.brokerage = boxes_.Number(BillBox::kBrokerage);
  line.net = boxes_.Number(BillBox::kNet);
  line.amount = boxes_.Number(BillBox::kAmount);
  line.service_tax = boxes_.Number(BillBox::kServiceTax);
  line.stt = boxes_.Number(BillBox::kLineStt);
  return line;
}

}  // namespace quorvane::bills
