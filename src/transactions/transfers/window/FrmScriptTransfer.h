#pragma once

#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/FieldLayout.h"
#include "controls/Grid.h"
#include "controls/RecordWindow.h"
#include "transactions/transfers/TransferBook.h"

#include <QRadioButton>

#include <array>
#include <optional>
#include <vector>

namespace quorvane::transfers {

/// "Transfer of Scripts": shares of the current client that move from one demat account to another
/// of theirs or of another client. The lots of the account that they leave are shown beside the
/// entry; while a transfer is changed, its shares are back in them.
class FrmScriptTransfer : public controls::RecordWindow {
  Q_OBJECT

 public:
  /// Throws std::runtime_error when no client is current.
  explicit FrmScriptTransfer(controls::Desk& desk);

 protected:
  std::string_view RecordTable() const override { return "ScrTransfer"; }
  std::optional<ClientId> RecordClient() const override { return of_.client; }
  void FillList() override;
  void Clear() override;
  void Load(int id) override;
  void BeginEditing() override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  void StateChanged() override;

 private:
  enum Box { Date, Script, Quantity, Rate, kBoxes };

  void BuildDetails();
  void BuildFields(controls::FieldLayout& fields);
  QWidget* BuildOptions();
  void SetColumns();
  void SetTabOrder();
  void Connect();
  void FillDestinations();
  void ShowLots();
  void ShowLot();
  const records::Lot* FindLot(LotId id) const;
  const records::Lot* LotOf(const Transfer& transfer) const;
  Transfer Entered() const;

  void Combo1_Click();
  void Option1_Click();
  void VS_RowColChange();
  void VS_DblClick();
  void Text1_Validate();
  void Form_Unload();

  ClientYear of_;
  TransferBook book_;
  ledger::Lots held_;                ///< as the ledger has them, a transfer under change taken back
  std::vector<Transfer> transfers_;  ///< as listed
  Transfer shown_;                   ///< as recorded; what is left of it names lot, scrip and rate
  std::vector<records::Lot> lots_;   ///< of the from-account, those with shares
  std::optional<bool> destinations_are_own_;  ///< what Combo2 offers
  bool was_editing_ = false;
  bool filling_ = false;
  std::array<controls::TextBox*, kBoxes> Text1{};
  controls::DateBox* date_ = nullptr;  ///< Text1_0
  controls::ComboBox* Combo1 = nullptr;
  controls::ComboBox* Combo2 = nullptr;
  QRadioButton* Option1 = nullptr;
  QRadioButton* Option2 = nullptr;
  controls::Grid* VS = nullptr;
};

}  // namespace quorvane::transfers
