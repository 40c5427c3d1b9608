#pragma once

#include "transactions/bills/EntryLookups.h"
#include "transactions/bills/window/BillContext.h"
#include "transactions/bills/window/BillHeaderPane.h"
#include "transactions/bills/window/BillLineForm.h"
#include "transactions/bills/window/HoldingsPane.h"

#include <optional>

namespace quorvane::bills {

/// The bill line that is being entered, a new one or a line of the bill that is changed: what
/// its boxes do when they are left or a choice is made.
class BillLinePane : public BillLineForm {
  Q_OBJECT

 public:
  /// The lot of a sale is picked from `holdings`; day and exchange of a rate are those of `head`.
  BillLinePane(BillContext& context, const BillHeaderPane& head, HoldingsPane& holdings,
               RateSource rates);

  /// Reads the lists of the choices again, for all panes; what is chosen stays.
  void ReadChoices();

  /// Forgets what the lines of the last bill were like.
  void Reset();

  /// Starts a new line; Change starts to change the line of the bill at that place.
  void Add();
  void Change(std::size_t place);

  /// No line is being entered any more; the boxes are empty.
  void End();

  bool IsOpen() const { return state_ != State::kNone; }
  bool IsNew() const { return state_ == State::kNew; }

  /// The place of the line that is being changed.
  BillEntry::Changed Changed() const;

  /// The line, after what was typed and not yet read is read.
  const LineEntry& Entry();

  /// Takes a lot; a line without a side becomes a sale. A purchase takes only the scrip of the lot.
  void PickLot(const records::Lot& lot);

 private:
  enum class State { kNone, kNew, kChange };

  void Connect();
  void ConnectBox(BillBox box);
  void Clear();
  void ShowEntry();
  records::ChargePercents PercentsOf(Delivery delivery) const;
  void ChooseScrip(ScripId scrip);
  void PickOnlyLot();
  void OfferRate();
  void TakeRate(double rate);

  void Text1_GotFocus(BillBox box);
  void Text1_Validate(BillBox box);
  void Text1_Date_Left();
  void Combo3_Click();
  void Combo4_Click();
  void Combo5_Click();
  void Combo6_Click();
  void Check1_Click();
  void TxtScr_Validate();

  BillContext& context_;
  const BillHeaderPane& head_;
  HoldingsPane& holdings_;
  RateSource rates_;
  LineEntry entry_;
  bool stt_in_whole_rupees_;
  State state_ = State::kNone;
  std::size_t changed_ = 0;
  int question_ = 0;  ///< number of the last rate that was asked for; answers to others are dropped
};

}  // namespace quorvane::bills
