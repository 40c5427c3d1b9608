#pragma once

#include "controls/ComboBox.h"
#include "controls/RecordWindow.h"
#include "controls/TextBox.h"
#include "transactions/broker_money/BrokerOpeningBook.h"

namespace quorvane::broker_money {

/// "Broker Opening Balance": the balances with the brokers when the year began. While the year has
/// none, the closing balances of the year before are offered on opening.
class FrmBrOpBal : public controls::RecordWindow {
  Q_OBJECT

 public:
  explicit FrmBrOpBal(controls::Desk& desk);

 protected:
  std::string_view RecordTable() const override { return "BrOpBal"; }
  void FillList() override;
  void Clear() override;
  void Load(int id) override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  void StateChanged() override;
  void FirstShown() override;

 private:
  void BuildFields();
  void CmdImport_Click();

  BrokerOpeningBook book_;
  std::vector<BrokerOpening> openings_;
  controls::ComboBox* Combo1;    ///< broker
  controls::AmountBox* Text1_0;  ///< amount
  controls::ComboBox* Combo2;    ///< side
  controls::ZENButton* CmdImport;
};

}  // namespace quorvane::broker_money
