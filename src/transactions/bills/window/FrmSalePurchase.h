#pragma once

#include "controls/RecordWindow.h"
#include "core/records/Bill.h"
#include "transactions/bills/BillBook.h"
#include "transactions/bills/BillEntry.h"
#include "transactions/bills/RateSource.h"
#include "transactions/bills/window/BillPane.h"

#include <optional>

namespace quorvane::bills {

using records::Bill;
using records::BillLine;
using records::Side;

/// "Sale / Purchase": the bills of the client and year that are current when the window opens. The
/// list stands behind one tab, the bill with its lines and the holdings of its account behind the
/// other. While a bill is edited, its lines are added, changed and deleted one by one.
class FrmSalePurchase : public controls::RecordWindow {
  Q_OBJECT

 public:
  /// Without `rates` the exchanges are asked. Throws std::runtime_error when no client is current.
  explicit FrmSalePurchase(controls::Desk& desk, RateSource rates = {});

 protected:
  void FillList() override;
  void Clear() override;
  void Load(int id) override;
  void BeginEditing() override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  void StateChanged() override;
  void EscapePressed() override;
  QString GiveUpQuestion() const override;

 private:
  enum class LineState { kNone, kAdding, kChanging };

  void HoldFields();
  void BuildSearch();
  void Connect();
  void ConnectLineButtons();

  Bill NewBill();
  void TakeHeader();
  void TakeCharges();
  ledger::Place PlaceOfBill() const { return {of_, Shown().account}; }
  void ShowBalance();
  void ShowAverages(std::span<const records::Movement> movements);
  void ShowHoldings();
  void ShowFound();
  records::TotalCaption Caption() const;
  const Bill& Shown() const { return IsEditing() ? entry_.Current() : shown_; }
  void SetLineState(LineState state);
  std::optional<std::size_t> ChangedLine() const;
  void OfferRate(ScripId scrip);
  bool Accepts(const MaybeRefusal& refusal);
  bool IsDateRefused() const;
  MaybeRefusal PutLine(const BillLine& line);
  bool AsksForTwin();

  void Text1_Date_Left();
  void Combo2_Click(int account);
  void Scrip_Chosen(int scrip);
  void Side_Chosen();
  void Quantity_Left();
  void Code_Unknown(const QString& code);
  void Charges_Left();
  void VS1_RowChanged();
  void VS1_RowActivated();
  void VS3_RowActivated();
  void TxtSearch_Change();
  void CmdAdd1_Click();
  void CmdModify1_Click();
  void CmdUpdate1_Click();
  void CmdDelete1_Click();
  void cmdCancel1_Click();
  void ImgRefresh_Click();
  void Form_Unload();

  ClientYear of_;
  BillBook book_;
  BillEntry entry_;
  RateSource rates_;
  std::vector<ListedBill> listed_;
  Bill shown_;  ///< as it is recorded, or the beginnings of a new one
  Bill last_;   ///< whose broker, exchange and account the next bill begins with
  LineState line_state_ = LineState::kNone;
  std::size_t changed_line_ = 0;
  int question_ = 0;  ///< the last rate that was asked for; others come too late
  BillPane* page_ = nullptr;
  controls::TextBox* TxtSearch = nullptr;
};

}  // namespace quorvane::bills
