#pragma once

#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/FieldLayout.h"
#include "controls/RecordWindow.h"
#include "controls/TextBox.h"
#include "transactions/corporate_actions/ActionBook.h"

#include <array>
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
  enum Box { New, Old, Price, Percent, kBoxes };

  void BuildFields();
  void BuildAccounts();
  void BuildButtons();
  void SetListColumns();
  void FillScrips();
  void EnableTerms();
  Action Entered() const;
  Action Chosen() const;
  void ShowEffects();
  void ClearEffects();
  void FillAccounts(const std::vector<actions::AccountEffect>& effects);
  void TellOfEffects(const Action& action, std::size_t accounts);
  bool MayRun(const QString& question);
  void TakeProposed();
  void Fill(const Action& action);

  void Combo1_Click();
  void VSA_AfterEdit(int row, int column);
  void CmdPreview_Click();
  void CmdApply_Click();
  void CmdTakeBack_Click();
  void CmdFile_Click();
  void CmdStatement_Click();

  ActionBook book_;
  std::vector<Action> listed_;
  std::vector<actions::AccountEffect> effects_;  ///< as shown
  ChosenShares chosen_;                          ///< entered beside the accounts
  int effects_of_ = 0;                           ///< the action whose effects are shown
  controls::ComboBox* Combo1 = nullptr;          ///< kind
  controls::ComboBox* Combo2 = nullptr;          ///< scrip
  controls::ComboBox* Combo3 = nullptr;          ///< the other scrip
  std::array<controls::TextBox*, kBoxes> Text1{};
  std::array<controls::DateBox*, 3> Text2{};  ///< ex-date, record date, allotment
  controls::TextBox* TxtNote = nullptr;
  controls::Grid* VSA = nullptr;
  QLabel* LblEffect = nullptr;
  controls::ZENButton* CmdPreview = nullptr;
  controls::ZENButton* CmdApply = nullptr;
  controls::ZENButton* CmdTakeBack = nullptr;
  controls::ZENButton* CmdFile = nullptr;
  controls::ZENButton* CmdStatement = nullptr;
};

}  // namespace quorvane::corporate_actions
