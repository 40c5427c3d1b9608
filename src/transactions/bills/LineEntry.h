#pragma once

#include "core/Result.h"
#include "core/records/Bill.h"
#include "core/records/Lot.h"
#include "transactions/bills/BillBoxes.h"
#include "transactions/bills/EntryLookups.h"

#include <array>
#include <optional>

namespace quorvane::bills {

using records::BillLine;
using records::Side;

/// The bill line that is being entered: what its boxes show, its scrip, the lot that a sale draws
/// on, and the charges and the rate that are proposed. What the user types replaces what is
/// proposed; until then the proposal follows the quantity, rate, delivery type and side that it
/// comes from.
class LineEntry {
 public:
  /// Empties everything but the side, the delivery type with its percentages and the F&O mark: the
  /// next line of a bill is mostly of the same kind.
  void Clear();

  /// Takes a line of the bill to be changed, with the percentages of its delivery type. A
  /// charge that is what they give counts as proposed, another one as typed.
  void Show(const BillLine& line, const records::ChargePercents& percents);

  /// STT is proposed in whole rupees, 50 paise up.
  void SetSttInWholeRupees(bool on) { stt_in_whole_rupees_ = on; }

  const BillBoxes& Boxes() const { return boxes_; }
  void Type(BillBox box, const QString& text) { boxes_.Type(box, text); }

  /// The box gets the focus: the brokerage, the service tax and the STT are proposed, not rounded.
  void Enter(BillBox box);

  /// The box is left: it takes its form, net rate and amount follow.
  void Leave(BillBox box);

  std::optional<Side> GetSide() const { return side_; }
  void SetSide(std::optional<Side> side);

  ScripId Scrip() const { return line_.scrip; }

  /// Another scrip clears the lot and a rate that was proposed.
  void SetScrip(ScripId scrip);

  LotId Lot() const { return line_.lot; }

  /// Takes the lot that a sale draws on, and its scrip; a purchase takes the scrip only.
  void SetLot(const records::Lot& lot);

  /// Percentages for the charges proposed from now on.
  void SetDelivery(Delivery delivery, const records::ChargePercents& percents);
  void SetSttPercent(double percent);
  double SttPercent() const { return line_.stt_percent; }
  const QString& DeliveryType() const { return line_.delivery_type; }

  void SetFo(bool fo) { line_.fo = fo; }
  bool Fo() const { return line_.fo; }

  /// Proposes a rate in rupees; false when the user has typed one.
  bool OfferRate(double rate);

  /// True when neither a scrip nor a number was entered.
  bool IsEmpty() const;

  /// The line as the boxes have it; a purchase when no side was chosen.
  BillLine Entered() const;

 private:
  double Proposal(BillBox charge) const;
  bool StandsAsOffered(BillBox box) const;
  void Offer(BillBox box, double number);
  void ProposeAgain(std::optional<BillBox> except = std::nullopt);

  BillBoxes boxes_;
  BillLine line_;  ///< what is not in the boxes
  std::optional<Side> side_;
  records::ChargePercents percents_;
  bool stt_in_whole_rupees_ = false;
  std::array<std::optional<double>, kBillBoxCount> offered_;
};

}  // namespace quorvane::bills
