#pragma once

#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/FieldLayout.h"
#include "controls/RecordWindow.h"
#include "core/lookups/Scrips.h"
#include "reporting/window/ReportDesk.h"
#include "transactions/opening_stock/OpeningEntry.h"
#include "transactions/opening_stock/OpeningStockBook.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

class QCheckBox;

namespace quorvane::opening_stock {

/// "Stock Opening Balance": the lots that the current client holds when the current year begins.
/// While the year has none, what was left of the year before is offered on opening.
class FrmStkOpBalance : public controls::RecordWindow {
  Q_OBJECT

 public:
  /// Throws std::runtime_error when no client is current.
  explicit FrmStkOpBalance(reporting::ReportDesk& desk);

 protected:
  std::string_view RecordTable() const override { return "StkOpBal"; }
  std::optional<ClientId> RecordClient() const override { return of_.client; }
  void FillList() override;
  void Clear() override;
  void Load(int id) override;
  void BeginEditing() override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  void StateChanged() override;
  void FirstShown() override;

  /// Shows how far a carry forward is and lets the user stop it.
  virtual std::unique_ptr<Progress> NewProgress();

 private:
  void BuildFields();
  void BuildBoxes(controls::FieldLayout& fields);
  void BuildButtons();
  void SetListColumns();
  controls::TextBox* BoxOf(OpeningBox box) const { return Text1[static_cast<std::size_t>(box)]; }
  void ReadScrips();
  void ShowScripCode();
  QString TypedIn(OpeningBox box) const;
  void TakeBoxes();
  void ShowBoxes();
  OpeningLot Entered() const;
  void CarryForwardIfWanted();
  void TellOfOtherRows(std::size_t carried);

  void Text1_Validate();
  void TxtScr_Validate();
  void Combo1_Click();
  void CmdImport_Click();
  void CmdReport_Click();

  reporting::ReportDesk& desk_;
  ClientYear of_;
  OpeningStockBook book_;
  std::vector<OpeningLot> lots_;  ///< as listed
  OpeningEntry entry_;
  AccountId last_account_;  ///< proposed for the next lot
  std::array<controls::TextBox*, kOpeningBoxCount> Text1{};
  controls::DateBox* date_ = nullptr;  ///< Text1_3
  lookups::ScripList scrips_;
  ScripId coded_;  ///< whose code is shown
  controls::TextBox* TxtScr = nullptr;
  controls::ComboBox* Combo1 = nullptr;
  controls::ComboBox* Combo2 = nullptr;
  QCheckBox* ChkFO = nullptr;
  controls::ZENButton* CmdImport = nullptr;
  controls::ZENButton* CmdReport = nullptr;
};

}  // namespace quorvane::opening_stock
