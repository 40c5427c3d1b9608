#pragma once

#include "controls/ComboBox.h"
#include "controls/FieldLayout.h"
#include "controls/Messages.h"
#include "controls/TextBox.h"
#include "core/ClientYear.h"
#include "core/database/Connection.h"
#include "core/records/Bill.h"
#include "transactions/bills/LineEntry.h"

#include <QCheckBox>
#include <QWidget>

#include <map>

namespace quorvane::bills {

using records::BillLine;
using records::Side;

/// The boxes of the bill line that is being entered.
class BillLinePane : public QWidget {
  Q_OBJECT

 public:
  BillLinePane(const controls::Guard& guard, database::Connection& connection,
               text::FinancialYear year);

  /// Reads again what there is to choose from; the choices stay.
  void ReadChoices();
  const ScripList& Scrips() const { return scrips_; }

  /// Forgets what the lines of the last bill were like.
  void Reset();

  /// Begins another line, or one of the bill's to be changed.
  void Begin();
  void Begin(const BillLine& line);

  /// The line with whatever is being typed.
  const LineEntry& Entry();

  /// Begins a sale from a lot, whatever was chosen before; only its scrip on a purchase.
  void PickLot(const records::Lot& lot);

  void OfferRate(double rate);
  void SetSttInWholeRupees(bool on) { stt_in_whole_rupees_ = on; }

  /// To the first box that has to be filled in for a new line, or to the quantity.
  void FocusFirst();
  void FocusQuantity();

 Q_SIGNALS:
  void ScripChosen(int scrip);
  void SideChosen();
  void QuantityLeft();

  /// A code that no scrip has.
  void CodeUnknown(const QString& code);

 private:
  void Arrange();
  void AddBox(controls::FieldLayout& fields, BillBox box, const QString& label, bool computed);
  void AddScrip(controls::FieldLayout& fields);
  void AddLot(controls::FieldLayout& fields);
  void Connect(const controls::Guard& guard);
  void ConnectBox(const controls::Guard& guard, BillBox box);
  void ShowBoxes();
  void ShowEntry();
  void ShowScrip(ScripId scrip);
  void Read();
  void ChooseScrip(ScripId scrip);
  void ShowLot();

  void Text1_GotFocus(BillBox box);
  void Text1_Validate(BillBox box);
  void Combo3_Click();
  void Combo4_Click();
  void Combo5_Click();
  void Combo6_Click();
  void Check1_Click();
  void TxtScr_Validate();

  database::Connection& connection_;
  text::FinancialYear year_;
  ScripList scrips_;
  LineEntry entry_;
  bool stt_in_whole_rupees_ = false;
  std::map<BillBox, controls::TextBox*> Text1;
  controls::ComboBox* Combo3;
  controls::ComboBox* Combo4;
  controls::ComboBox* Combo5;
  controls::ComboBox* Combo6;
  controls::TextBox* TxtScr;
  controls::TextBox* TxtStkId;
  QCheckBox* Check1;
};

}  // namespace quorvane::bills
