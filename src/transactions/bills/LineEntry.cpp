#include "transactions/bills/LineEntry.h"

#include "core/text/Amounts.h"

#include <algorithm>

namespace quorvane::bills {
namespace {

constexpr std::array kLineBoxes{BillBox::kQuantity, BillBox::kRate,   BillBox::kBrokerage,
                                BillBox::kNet,      BillBox::kAmount, BillBox::kServiceTax,
                                BillBox::kLineStt};

// In the order in which one follows from the other.
constexpr std::array kCharges{BillBox::kBrokerage, BillBox::kServiceTax, BillBox::kLineStt};

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

void LineEntry::Show(const BillLine& line, const records::ChargePercents& percents) {
  line_ = line;
  side_ = line.side;
  percents_ = percents;
  boxes_.Show(BillBox::kQuantity, line.quantity.Number());
  boxes_.Show(BillBox::kRate, line.rate);
  boxes_.Show(BillBox::kBrokerage, line.brokerage);
  boxes_.Show(BillBox::kNet, line.net);
  boxes_.Show(BillBox::kAmount, line.amount);
  boxes_.Show(BillBox::kServiceTax, line.service_tax);
  boxes_.Show(BillBox::kLineStt, line.stt);
  offered_ = {};
  for (const BillBox box : kCharges) {
    const double proposal = Proposal(box);
    if (boxes_[box] == text::FormatAmount(proposal)) {
      offered_[static_cast<std::size_t>(box)] = proposal;
    }
  }
}

double LineEntry::Proposal(BillBox charge) const {
  if (charge == BillBox::kBrokerage) {
    return records::DefaultBrokerage(percents_, boxes_.Number(BillBox::kRate));
  }
  if (charge == BillBox::kServiceTax) {
    return records::DefaultServiceTax(percents_, boxes_.Number(BillBox::kBrokerage),
                                      boxes_.Number(BillBox::kQuantity));
  }
  const double stt =
      records::DefaultStt({.stt = line_.stt_percent}, boxes_.Number(BillBox::kAmount));
  return stt_in_whole_rupees_ ? records::InWholeRupees(stt) : stt;
}

void LineEntry::Enter(BillBox box) {
  if (std::ranges::find(kCharges, box) != kCharges.end()) {
    Offer(box, Proposal(box));
  }
}

void LineEntry::Leave(BillBox box) {
  LeaveBox(box, side_.value_or(Side::kPurchase), boxes_);
  ProposeAgain(box);
}

/// The charges that were proposed and still stand so.
void LineEntry::ProposeAgain(std::optional<BillBox> except) {
  for (const BillBox box : kCharges) {
    const bool was_offered =
        offered_[static_cast<std::size_t>(box)] && !boxes_[box].isEmpty() && StandsAsOffered(box);
    if (was_offered && box != except) {
      Offer(box, Proposal(box));
      LeaveBox(box, side_.value_or(Side::kPurchase), boxes_);
    }
  }
}

void LineEntry::SetSide(std::optional<Side> side) {
  if (side_ == side) {
    return;
  }
  side_ = side;
  line_.lot = {};
  if (!boxes_[BillBox::kAmount].isEmpty()) {
    RecomputeLine(side_.value_or(Side::kPurchase), boxes_);
    ProposeAgain();
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

void LineEntry::SetLot(const records::Lot& lot) {
  SetScrip(lot.scrip);
  line_.lot = side_ == Side::kSale ? lot.id : LotId{};
  line_.lot_rate = lot.rate;
}

void LineEntry::SetDelivery(Delivery delivery, const records::ChargePercents& percents) {
  line_.delivery_type = DeliveryText(delivery);
  line_.stt_percent = percents.stt;
  percents_ = percents;
  ProposeAgain();
}

void LineEntry::SetSttPercent(double percent) {
  line_.stt_percent = percent;
  ProposeAgain();
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
  auto& offered = offered_[static_cast<std::size_t>(box)];
  const bool is_there = offered == number && !boxes_[box].isEmpty();
  if (StandsAsOffered(box) && !is_there) {
    boxes_.Type(box, text::NumberText(number));
    offered = number;
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
  line.quantity = text::Shares(boxes_.Number(BillBox::kQuantity));
  line.rate = boxes_.Number(BillBox::kRate);
  line.brokerage = boxes_.Number(BillBox::kBrokerage);
  line.net = boxes_.Number(BillBox::kNet);
  line.amount = boxes_.Number(BillBox::kAmount);
  line.service_tax = boxes_.Number(BillBox::kServiceTax);
  line.stt = boxes_.Number(BillBox::kLineStt);
  return line;
}

}  // namespace quorvane::bills
