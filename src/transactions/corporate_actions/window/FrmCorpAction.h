#pragma once

#include "controls/RecordWindow.h"
#include "transactions/corporate_actions/ActionBook.h"
#include "transactions/corporate_actions/window/ActionFields.h"

#include <vector>

class QLabel;

namespace quorvane::corporate_actions {

/// "Corporate Actions": splits, bonus shares, mergers and the rest, of all scrips. Beside list and
/// details a panel shows what the chosen action does to every account; there it is applied to the
/// holdings and taken back.
class FrmCorpAction : public controls::RecordWindow {
  Q_OBJECT

 public:
  explicit FrmCorpAction(controls::Desk& desk);

  void AskedAgain() override;

 protected:
  std::string_view RecordTable() const override { return "CorpAction"; }
  void FirstShown() override;
  void FillList() override;
  void Clear() override;
  void Load(int id) override;
  void BeginEditing() override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  void StateChanged() override;

 private:
  void BuildAccounts();
  void BuildButtons();
  void SetListColumns();
  Action Chosen() const;
  void ShowEffects();
  void ClearEffects();
  void FillAccounts(const std::vector<actions::AccountEffect>& effects);
  void TellOfEffects(const Action& action, std::size_t accounts);
  void TakeProposed();

  void Combo1_Click();
  void VSA_AfterEdit(int row, int column);
  void CmdPreview_Click();
  void CmdApply_Click();
  void CmdTakeBack_Click();
  void CmdFile_Click();
  void CmdStatement_Click();

  ActionBook book_;
  ActionFields* fields_;
  std::vector<Action> listed_;
  std::vector<actions::AccountEffect> effects_;  ///< as shown
  ChosenShares chosen_;                          ///< entered beside the accounts
  int effects_of_ = 0;                           ///< the action whose effects are shown
  controls::Grid* VSA = nullptr;
  QLabel* LblEffect = nullptr;
  controls::ZENButton* CmdPreview = nullptr;
  controls::ZENButton* CmdApply = nullptr;
  controls::ZENButton* CmdTakeBack = nullptr;
  controls::ZENButton* CmdFile = nullptr;
  controls::ZENButton* CmdStatement = nullptr;
};

}  // namespace quorvane::corporate_actions
