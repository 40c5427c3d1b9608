#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "controls/Grid.h"
#include "portfolio/notes/NoteBook.h"
#include "portfolio/window/PaperFields.h"

#include <vector>

class QLabel;

namespace quorvane::notes {

/// "Contract Notes": reads brokers' notes, shows what was understood and whether it adds up,
/// and records those that are ticked as bills of a client and account.
class ImpNotes : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit ImpNotes(controls::Desk& desk);

 private:
  void Build();
  QLayout* BuildChoice();
  QLayout* BuildAssignment();
  QLayout* BuildButtons();
  void FillChoices();
  void FillScrips();
  void Plan();
  void FillNotes();
  void FillLines();
  void ShowSums(const PlannedNote* note);
  void Enable();
  bool CheckChoice();
  NoteQuery Query() const;
  const PlannedNote* Current() const;
  bool AsksAboutDelivery(const std::vector<PlannedNote>& chosen);
  bool AsksToReplace(const std::vector<PlannedNote>& chosen);

  void Combo1_Click();
  void Combo_Click();
  void VSF_RowColChange(int row);
  void VSL_RowColChange(int row);
  void CmdFile_Click();
  void CmdAssign_Click();
  void CmdScript_Click();
  void CmdTake_Click();
  void CmdClear_Click();

  std::vector<PlannedNote> notes_;
  paper::PaperFields* fields_ = nullptr;
  controls::ComboBox* Combo3 = nullptr;  ///< broker
  controls::ComboBox* Combo4 = nullptr;  ///< exchange
  controls::ComboBox* Combo5 = nullptr;  ///< the scrip for an unknown ISIN
  QLabel* LblFile = nullptr;
  controls::Grid* VSF = nullptr;  ///< notes
  controls::Grid* VSL = nullptr;  ///< lines of the current note
  controls::ZENButton* CmdFile = nullptr;
  controls::ZENButton* CmdTake = nullptr;
  controls::ZENButton* CmdClear = nullptr;
  controls::ZENButton* CmdAssign = nullptr;
  controls::ZENButton* CmdScript = nullptr;
};

}  // namespace quorvane::notes
